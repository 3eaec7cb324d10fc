#include "runner/Esecutore.h"

#include <cstdio>
#include <cstdlib>

#include "runner/Contesto.h"
#include "runner/Eventi.h"

namespace fenalto::copione {
namespace {

class Esecuzione {
 public:
  Esecuzione(const OpzioniEsecuzione& opzioni, Segnalibro& segno)
      : programma_(opzioni.ambiente, kDitta, kAnno),
        scena_(programma_),
        contesto_{programma_, scena_, opzioni.uscita, {}, 0},
        segno_(segno),
        continua_(opzioni.continua) {
    programma_.dialoghi.senzaFine = [this](const std::string& guasto) {
      Riferisci(luogo_, comando_, guasto + " again and again");
      std::_Exit(EXIT_FAILURE);
    };
  }

  bool Corri(const Copione& copione) {
    const Comando avvio{copione.file, 1, "avvio", {}};
    if (!Prova(avvio, {Genere::Azione, [](Contesto& c, const Comando&) { c.programma.Avvia(); }})) {
      return false;
    }
    for (const auto& comando : copione.comandi) {
      const auto* voce = VoceDiComando(comando.nome);
      const bool riuscito = voce != nullptr && Prova(comando, *voce);
      if (riuscito) continue;
      fallito_ = true;
      if (guasto_ || !continua_ || voce == nullptr || voce->genere == Genere::Azione) return false;
    }
    for (const auto& avanzo : programma_.dialoghi.Avanzi()) {
      Riferisci(avanzo.luogo, avanzo.comando, avanzo.motivo);
      fallito_ = true;
    }
    const Comando fine{
        copione.file, copione.comandi.empty() ? 1 : copione.comandi.back().riga, "fine", {}};
    const bool chiuso =
        Prova(fine, {Genere::Azione, [](Contesto& c, const Comando&) { c.programma.Ferma(); }});
    return chiuso && !fallito_;
  }

 private:
  /// Runs one command and what follows from it. False when it failed, with the reason printed.
  bool Prova(const Comando& comando, const Voce& voce) {
    const std::int64_t limite = kLimite + (comando.nome == "attesa" ? comando.Numero(0) : 0);
    segno_.Comincia(comando.Luogo(), comando.nome, AdessoMs() + limite);
    contesto_.scadenza = std::chrono::steady_clock::now() + std::chrono::milliseconds(limite);
    contesto_.dialoghiPrima = programma_.dialoghi.Mostrati();
    luogo_ = comando.Luogo();
    comando_ = comando.nome;
    std::string motivo;
    try {
      voce.esegui(contesto_, comando);
      contesto_.Attendi();
      scena_.Aggiorna();
    } catch (const std::exception& errore) {
      motivo = errore.what();
    }
    // A dialog without an answer is the cause of whatever failed after it.
    const std::string senzaRisposta = programma_.dialoghi.PrendiGuasto();
    guasto_ = !senzaRisposta.empty();
    if (guasto_) motivo = senzaRisposta;
    if (motivo.empty()) return true;
    Riferisci(comando.Luogo(), comando.nome, motivo);
    return false;
  }

  static void Riferisci(const std::string& luogo, const std::string& comando,
                        const std::string& motivo) {
    std::string riga;
    for (const char c : motivo) riga += c == '\n' ? std::string("\\n") : std::string(1, c);
    std::printf("%s: %s: %s\n", luogo.c_str(), comando.c_str(), riga.c_str());
    std::fflush(stdout);
  }

  Programma programma_;
  Scena scena_;
  Contesto contesto_;
  Segnalibro& segno_;
  std::string luogo_;  ///< of the command under way
  std::string comando_;
  bool continua_;
  bool fallito_ = false;
  bool guasto_ = false;  ///< the last command met a dialog without an answer
};

}  // namespace

bool EseguiCopione(const Copione& copione, const OpzioniEsecuzione& opzioni, Segnalibro& segno) {
  Esecuzione esecuzione(opzioni, segno);
  return esecuzione.Corri(copione);
}

}  // namespace fenalto::copione

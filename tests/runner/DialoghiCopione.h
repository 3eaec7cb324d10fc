// The ports of a scripted program: dialogs answered from queues, a clock that can be stopped, a
// fixed sequence of random numbers.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/session/Porte.h"

namespace fenalto::copione {

/// The answer to a coming question (`testo` empty) or input box.
struct RispostaAttesa {
  std::string luogo;  ///< where the copione queued it
  Risposta risposta = Risposta::Ok;
  std::optional<std::string> valore;  ///< of an input box
  std::string contiene;               ///< what the question must contain; empty for anything
};

struct UscitaAttesa {
  std::string luogo;
  std::optional<SceltaUscita> scelta;  ///< nothing: cancelled
};

struct FileAtteso {
  std::string luogo;
  std::filesystem::path file;  ///< empty: cancelled
};

class DialoghiCopione : public Dialoghi {
 public:
  void Accoda(RispostaAttesa risposta) { risposte_.push_back(std::move(risposta)); }
  void Accoda(UscitaAttesa uscita) { uscite_.push_back(std::move(uscita)); }
  void Accoda(FileAtteso file) { file_.push_back(std::move(file)); }
  /// Told when a dialog without an answer is asked again and again: it can't be got out of.
  std::function<void(const std::string& guasto)> senzaFine;

  /// What the next choice of company and the log-ins after it are answered with.
  void Prepara(std::optional<SceltaDitta> scelta, std::optional<Credenziali> accesso);

  /// Takes the oldest dialog not yet checked off the list; nothing when there is none.
  std::optional<std::string> PrendiPiuVecchio();
  [[nodiscard]] const std::deque<std::string>& DaVerificare() const { return daVerificare_; }
  void Ignora() { daVerificare_.clear(); }
  /// All dialogs shown so far.
  [[nodiscard]] int Mostrati() const { return mostrati_; }
  /// Text of the last dialog shown, empty when none was.
  [[nodiscard]] const std::string& Ultimo() const { return ultimo_; }
  /// Work under way with its progress shown.
  [[nodiscard]] int Lavori() const { return lavori_; }
  /// The first dialog since the last call that had no fitting answer, with why; empty when none.
  std::string PrendiGuasto();
  /// What was queued and never used: place and why.
  struct Avanzo {
    std::string luogo;
    std::string comando;
    std::string motivo;
  };
  [[nodiscard]] std::vector<Avanzo> Avanzi() const;

  void Messaggio(const std::string& testo, Icona icona) override;
  Risposta Domanda(const std::string& testo, Bottoni bottoni, Risposta predefinita,
                   const std::string& titolo, Icona icona) override;
  std::optional<std::string> Chiedi(const std::string& testo, const std::string& iniziale) override;
  std::optional<SceltaUscita> ScegliUscita(const std::string& rapporto, bool esporta) override;
  std::optional<std::filesystem::path> ScegliFile(const std::string& titolo, ModoFile modo,
                                                  const std::string& filtro) override;
  std::optional<SceltaDitta> ScegliDitta(
      const std::vector<DittaTrovata>& ditte,
      const std::function<std::vector<int>(const std::string&, std::string&)>& anniDi) override;
  std::optional<Credenziali> ChiediAccesso(const std::string& avviso) override;
  std::unique_ptr<Avanzamento> Avvia(const std::string& testo, std::int64_t totale) override;
  bool ApriEsterno(const std::string& fileOIndirizzo) override;

 private:
  class LavoroContato;
  void Mostra(const std::string& testo);
  void Guasta(const std::string& motivo);
  /// Takes the next answer when it fits a dialog of that text.
  std::optional<RispostaAttesa> Prossima(const std::string& genere, const std::string& testo);

  std::deque<RispostaAttesa> risposte_;
  std::deque<UscitaAttesa> uscite_;
  std::deque<FileAtteso> file_;
  std::optional<SceltaDitta> sceltaDitta_;
  std::optional<Credenziali> accesso_;
  std::deque<std::string> daVerificare_;
  std::string ultimo_;
  std::string guasto_;
  int mostrati_ = 0;
  int dopoGuasto_ = 0;
  int lavori_ = 0;
};

/// The system's clock until it is stopped on a day, at 10:00.
class OrologioCopione : public Orologio {
 public:
  void Ferma(Data giorno) { fermo_ = giorno; }
  [[nodiscard]] Data Oggi() const override { return fermo_ ? *fermo_ : sistema_.Oggi(); }
  [[nodiscard]] std::string Ora() const override { return fermo_ ? "10:00" : sistema_.Ora(); }

 private:
  OrologioDiSistema sistema_;
  std::optional<Data> fermo_;
};

class CasoCopione : public Caso {
 public:
  std::uint64_t Numero() override { return generatore_(); }

 private:
  std::mt19937_64 generatore_{20240315};
};

}  // namespace fenalto::copione

#include "duedates/payments/ImpostazioniPagamento.h"

#include "core/session/ImpostazioneAttiva.h"

namespace fenalto::duedates {
namespace {

class Chiavi {
 public:
  Chiavi(Ambiente& ambiente, FinestraPagamento finestra, const std::string& cfp)
      : ambiente_(ambiente),
        numero_(std::to_string(static_cast<int>(finestra))),
        classe_(cfp == "F" ? "F" : "C"),
        altra_(cfp == "F" ? "C" : "F") {}

  [[nodiscard]] std::string Leggi(const char* chiave) const {
    return ambiente_.Config(Valida(chiave));
  }
  [[nodiscard]] bool Attiva(const char* chiave) const {
    return ImpostazioneAttiva(ambiente_, Valida(chiave));
  }
  void Scrivi(const char* chiave, const std::string& valore) {
    if (Leggi(chiave) != valore) Registra(chiave, valore);
  }
  void Scrivi(const char* chiave, bool valore) {
    if (Attiva(chiave) != valore) Registra(chiave, valore ? "1" : "0");
  }

 private:
  [[nodiscard]] std::string SenzaClasse(const char* chiave) const { return chiave + numero_; }
  /// The name of the key that counts: without class as long as neither class has its own.
  [[nodiscard]] std::string Valida(const char* chiave) const {
    const std::string nome = SenzaClasse(chiave);
    const bool comune =
        ambiente_.Config(nome + classe_).empty() && ambiente_.Config(nome + altra_).empty();
    return comune ? nome : nome + classe_;
  }
  /// The key without class keeps what was typed last; what the other class had from it stays its.
  void Registra(const char* chiave, const std::string& valore) {
    const std::string nome = SenzaClasse(chiave);
    const std::string comune = ambiente_.Config(nome);
    if (Valida(chiave) == nome && !comune.empty()) {
      ambiente_.ScriviImpostazione({}, "config", nome + altra_, comune);
    }
    for (const std::string& quale : {nome + classe_, nome}) {
      ambiente_.ScriviImpostazione({}, "config", quale, valore);
    }
  }

  Ambiente& ambiente_;
  std::string numero_;
  std::string classe_;
  std::string altra_;
};

constexpr const char* kCausale = "CausalePagScad";
constexpr const char* kContropartita = "ContropartitaPagScad";
constexpr const char* kArrotondamenti = "ContoArrotondamentiPagScad";
constexpr const char* kRegistrazione = "RegistrazioneContabilePagScad";

bool HaArrotondamenti(FinestraPagamento finestra) {
  return finestra == FinestraPagamento::Scadenzario || finestra == FinestraPagamento::SingolaParte;
}

}  // namespace

ImpostazioniPagamento LeggiImpostazioni(Ambiente& ambiente, FinestraPagamento finestra,
                                        const std::string& cfp) {
  const Chiavi chiavi(ambiente, finestra, cfp);
  ImpostazioniPagamento lette;
  lette.causale = chiavi.Leggi(kCausale);
  lette.contropartita = chiavi.Leggi(kContropartita);
  if (HaArrotondamenti(finestra)) lette.contoArrotondamenti = chiavi.Leggi(kArrotondamenti);
  if (finestra != FinestraPagamento::Scadenzario) {
    lette.conRegistrazione = chiavi.Attiva(kRegistrazione);
  }
  return lette;
}

void ScriviImpostazioni(Ambiente& ambiente, FinestraPagamento finestra, const std::string& cfp,
                        const ImpostazioniPagamento& impostazioni) {
  Chiavi chiavi(ambiente, finestra, cfp);
  chiavi.Scrivi(kCausale, impostazioni.causale);
  chiavi.Scrivi(kContropartita, impostazioni.contropartita);
  if (HaArrotondamenti(finestra)) {
    chiavi.Scrivi(kArrotondamenti, impostazioni.contoArrotondamenti);
  }
  if (finestra != FinestraPagamento::Scadenzario) {
    chiavi.Scrivi(kRegistrazione, impostazioni.conRegistrazione);
  }
}

SchedaImpostazioni::SchedaImpostazioni(FinestraPagamento finestra) : finestra_(finestra) {
  for (const char* campo : {kCausale, kContropartita, kArrotondamenti}) {
    scheda_.Aggiungi(Chiave(campo), Tipo::Testo);
  }
  scheda_.Aggiungi(Chiave(kRegistrazione), Tipo::Booleano);
}

std::string SchedaImpostazioni::Chiave(const char* nome) const {
  return nome + std::to_string(static_cast<int>(finestra_));
}

void SchedaImpostazioni::Leggi(Ambiente& ambiente, const std::string& cfp) {
  const ImpostazioniPagamento lette = LeggiImpostazioni(ambiente, finestra_, cfp);
  scheda_.Scrivi(Chiave(kCausale), lette.causale);
  scheda_.Scrivi(Chiave(kContropartita), lette.contropartita);
  scheda_.Scrivi(Chiave(kArrotondamenti), lette.contoArrotondamenti);
  scheda_.Scrivi(Chiave(kRegistrazione), lette.conRegistrazione);
}

void SchedaImpostazioni::Scrivi(Ambiente& ambiente, const std::string& cfp) const {
  ScriviImpostazioni(ambiente, finestra_, cfp, Valori());
}

ImpostazioniPagamento SchedaImpostazioni::Valori() const {
  return {scheda_.Testo(Chiave(kCausale)), scheda_.Testo(Chiave(kContropartita)),
          scheda_.Testo(Chiave(kArrotondamenti)),
          finestra_ == FinestraPagamento::Scadenzario ||
              scheda_.Leggi(Chiave(kRegistrazione)).Booleano()};
}

}  // namespace fenalto::duedates

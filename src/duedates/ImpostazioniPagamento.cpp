#include "duedates/ImpostazioniPagamento.h"

#include "core/session/ImpostazioneAttiva.h"

namespace fenalto {
namespace {

class Chiavi {
 public:
  Chiavi(Ambiente& ambiente, FinestraPagamento finestra, const std::string& cfp)
      : ambiente_(ambiente),
        numero_(std::to_string(static_cast<int>(finestra))),
        classe_(cfp == "F" ? "F" : "C") {}

  [[nodiscard]] std::string Nome(const char* chiave) const { return chiave + numero_; }
  [[nodiscard]] std::string DiClasse(const char* chiave) const { return Nome(chiave) + classe_; }
  [[nodiscard]] std::string Leggi(const char* chiave) const {
    const std::string propria = ambiente_.Config(DiClasse(chiave));
    return propria.empty() ? ambiente_.Config(Nome(chiave)) : propria;
  }
  [[nodiscard]] bool Attiva(const char* chiave) const {
    return ImpostazioneAttiva(ambiente_, DiClasse(chiave),
                              ImpostazioneAttiva(ambiente_, Nome(chiave)));
  }
  void Scrivi(const char* chiave, const std::string& valore) {
    if (Leggi(chiave) == valore) return;
    ambiente_.ScriviImpostazione({}, "config", DiClasse(chiave), valore);
  }
  void Scrivi(const char* chiave, bool valore) {
    if (Attiva(chiave) == valore) return;
    ambiente_.ScriviImpostazione({}, "config", DiClasse(chiave), valore ? "1" : "0");
  }

 private:
  Ambiente& ambiente_;
  std::string numero_;
  std::string classe_;
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

}  // namespace fenalto

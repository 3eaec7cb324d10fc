#include "duedates/reports/TestSaldi.h"

#include "core/reports/Cornice.h"
#include "core/values/Testo.h"
#include "duedates/reports/LetturaScadenze.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kRapporto = "Controllo saldi contabili con scadenze in vita";
constexpr const char* kColonneTest =
    "|                                              |saldo contabile| saldo scadenze|"
    "    differenza |";
constexpr const char* kRigaTest =
    "|$$$$$$$$$$ $$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$$|ççççççççççççççç|ççççççççççççççç|"
    "ççççççççççççççç|";

SceltaScadenze ComeScadenze(const SceltaConfronto& scelta) {
  SceltaScadenze s;
  s.cfp = scelta.cfp;
  s.daCliFor = scelta.daCliFor;
  s.aCliFor = scelta.aCliFor;
  return s;
}

/// "clienti da 0001 a 0009"
std::string NomiParti(const SceltaConfronto& s) {
  return NomeClasse(ComeScadenze(s)) + (s.daCliFor.empty() ? "" : " da " + s.daCliFor) +
         (s.aCliFor.empty() ? "" : " a " + s.aCliFor);
}

class TabulatoSaldi {
 public:
  TabulatoSaldi(Ambiente& ambiente, reports::FabbricaUscite& uscite, std::string titolo)
      : ambiente_(ambiente),
        titolo_(std::move(titolo)),
        stampa_(ambiente, uscite),
        ditta_(reports::LeggiDatiDitta(ambiente)),
        riga_(reports::PictureImporto(kRigaTest, ambiente.Euro())),
        larghezza_(LunghezzaTesto(kColonneTest)) {}

  bool Esegui(const SceltaConfronto& scelta) {
    reports::Cornice cornice;
    cornice.rapporto = kRapporto;
    cornice.titolo = kRapporto;
    cornice.larghezza = larghezza_;
    if (reports::ApriStampa(stampa_, ambiente_, cornice) == reports::ModoStampa::Fermata)
      return false;
    stampa_.Intestazione([this, &scelta] { Testata(scelta); });
    bool concordi = true;
    const bool tutte = ConfrontaSaldi(ambiente_, scelta, [&](const ParteDiscorde& parte) {
      concordi = false;
      Riga(parte);
      return !stampa_.Interrotta();
    });
    if (!tutte) return false;
    if (concordi) Intera("nessuna differenza");
    stampa_.Riga(reports::Ripeti("-", larghezza_));
    return stampa_.Fine();
  }

 private:
  void Testata(const SceltaConfronto& scelta) {
    reports::TestataTesto(stampa_, ambiente_, ditta_, stampa_.NumeroPagina(), larghezza_);
    Intera(kRapporto, true);
    Intera(titolo_ + ", " + NomiParti(scelta));
    stampa_.Riga(reports::Ripeti("=", larghezza_));
    stampa_.Riga(kColonneTest);
    stampa_.Riga(reports::Ripeti("-", larghezza_));
  }

  void Riga(const ParteDiscorde& parte) {
    std::size_t n = 0;
    stampa_.Campo(++n, parte.cod);
    stampa_.Campo(++n, parte.descrizione.empty() ? "non in archivio" : parte.descrizione);
    stampa_.Campo(++n, parte.saldoContabile);
    stampa_.Campo(++n, parte.saldoScadenze);
    stampa_.Campo(++n, parte.Differenza());
    stampa_.Riga(riga_, AlConto(parte.cfp, parte.cod));
  }

  void Intera(const std::string& testo, bool grassetto = false) {
    stampa_.Campo(1, testo);
    stampa_.Riga(reports::Ripeti("$", larghezza_), {}, grassetto);
  }

  Ambiente& ambiente_;
  std::string titolo_;
  reports::Stampa stampa_;
  reports::DatiDitta ditta_;
  std::string riga_;
  std::size_t larghezza_;
};

}  // namespace

std::string TestSaldi::Titolo() const {
  return "Controllo scadenze in vita con saldi contabili anno " + std::to_string(ambiente_.Anno());
}

bool TestSaldi::Stampa(const SceltaConfronto& scelta) {
  if (!ambiente_.Euro()) {
    ambiente_.Dialogo().Messaggio(
        "lo scadenzario non funziona in lire: selezionare un anno in euro", Icona::Avviso);
    return false;
  }
  if (const auto difetto = DifettoScelta(ComeScadenze(scelta))) {
    ambiente_.Dialogo().Messaggio(*difetto, Icona::Avviso);
    return false;
  }
  return TabulatoSaldi(ambiente_, uscite_, Titolo()).Esegui(scelta);
}

}  // namespace fenalto::duedates

#include "duedates/reports/TestSaldi.h"

#include "core/reports/Rapporto.h"
#include "duedates/reports/LetturaScadenze.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kScritta = "R_SCRITTATOT";
constexpr const char* kRapporto = "Controllo saldi contabili con scadenze in vita";

SceltaScadenze ComeScadenze(const SceltaConfronto& scelta) {
  SceltaScadenze s;
  s.cfp = scelta.cfp;
  s.daCliFor = scelta.daCliFor;
  s.aCliFor = scelta.aCliFor;
  return s;
}

/// "clienti da 0001 a 0009"
std::string Parti(const SceltaConfronto& s) {
  return NomeClasse(ComeScadenze(s)) + (s.daCliFor.empty() ? "" : " da " + s.daCliFor) +
         (s.aCliFor.empty() ? "" : " a " + s.aCliFor);
}

reports::Tabella<ParteDiscorde> TabellaSaldi() {
  using P = ParteDiscorde;
  const std::string importo = "|" + reports::Ripeti("ç", 15);
  return reports::Tabella<P>(
      {{{"", "|$$$$$$$$$$", "R_CONTO", "", {"codice"}}, &P::cod},
       {{"", " " + reports::Ripeti("$", 35), "R_RAGSOC", "", {"cliente / fornitore"}},
        [](const P& p) { return p.descrizione.empty() ? "non in archivio" : p.descrizione; }},
       {{"saldo contabile", importo, "R_SALDO"}, &P::saldoContabile},
       {{"saldo scadenze", importo, "R_SCADENZE"}, &P::saldoScadenze},
       {{"differenza ", importo + "|", "R_DIFFERENZA"}, &P::Differenza}});
}

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
  if (Rifiuta(ambiente_, DifettoScelta(ComeScadenze(scelta)))) return false;
  const auto tabella = TabellaSaldi();
  reports::Rapporto rapporto(ambiente_, uscite_);
  rapporto.Tavola(tabella, kScritta);
  const auto testata = [&] {
    rapporto.TestataDitta();
    rapporto.Titolo("TITOLO", kRapporto, true);
    rapporto.Titolo("TITOLO2", Titolo() + ", " + Parti(scelta));
    rapporto.Titoli();
  };
  if (!rapporto.Apri({.rapporto = kRapporto, .titolo = kRapporto, .grafico = true}, testata)) {
    return false;
  }
  bool concordi = true;
  const bool tutte = ConfrontaSaldi(ambiente_, scelta, [&](const ParteDiscorde& parte) {
    concordi = false;
    rapporto.RigaTavola(tabella.Celle(parte), AlConto(parte.cfp, parte.cod));
    return !rapporto.Interrotta();
  });
  if (!tutte) return false;
  if (concordi) rapporto.Scritta(kScritta, "nessuna differenza");
  rapporto.Filo("-");
  return rapporto.Fine();
}

}  // namespace fenalto::duedates

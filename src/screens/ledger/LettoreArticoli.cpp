#include "screens/ledger/LettoreArticoli.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::screens {
namespace {

constexpr std::string_view kDiversi = "DIVERSI";

void Unisci(std::string& condizione, const std::string& altra) {
  if (altra.empty()) return;
  if (!condizione.empty()) condizione += " OR ";
  condizione += altra;
}

std::string CondizioneDiClasse(const std::string& classe, const std::string& codici) {
  return "(" + sql::Criterio("CFP", "=", classe) + " AND Conto IN (" + codici + ")) OR (" +
         sql::Criterio("CfpA", "=", classe) + " AND ContoA IN (" + codici + "))";
}

}  // namespace

std::string LettoreArticoli::Descritto(const std::string& cfp, const std::string& conto) {
  if (conto.empty() || conto == kDiversi) return conto;
  const std::string& descrizione = descrizioni_.Di(cfp, conto);
  return descrizione.empty() ? conto : conto + "  " + descrizione;
}

std::vector<ArticoloLetto> LettoreArticoli::Pagina(const RicercaArticoli& ricerca,
                                                   std::int64_t sotto, std::int64_t oltre,
                                                   int quante) {
  std::vector<ArticoloLetto> letti;
  if (ricerca.impossibile) return letti;
  std::string testo = "SELECT TOP " + std::to_string(quante) +
                      " NumDoc, Dt, CFP, Conto, CfpA, ContoA FROM ZArticoliNonIva WHERE " +
                      sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND " +
                      sql::Criterio("NumDoc", "<", sotto) + " AND " +
                      sql::Criterio("NumDoc", ">", oltre);
  if (!ricerca.condizione.empty()) testo += " AND (" + ricerca.condizione + ")";
  Rs righe = Tessarc().Recordset(testo + " ORDER BY NumDoc DESC");
  for (; !righe.Eof(); righe.MoveNext()) {
    letti.push_back({righe.Fields(0).Intero(), righe.Fields(1).Data(),
                     Descritto(righe.Fields(2).Testo(), righe.Fields(3).Testo()),
                     Descritto(righe.Fields(4).Testo(), righe.Fields(5).Testo())});
  }
  return letti;
}

std::optional<ArticoloLetto> LettoreArticoli::Uno(std::int64_t numero) {
  auto letti = Pagina({}, numero + 1, numero - 1, 1);
  if (letti.empty()) return std::nullopt;
  return std::move(letti.front());
}

std::int64_t LettoreArticoli::Inizio() {
  return ambiente_.Max("NumDoc", "Articoli", {{"Anno", ambiente_.Anno()}}, Tessarc()).Intero() + 1;
}

std::string LettoreArticoli::ConConto(const std::string& testo) {
  std::string condizione;
  for (const auto& [classe, elenco] : ContiCercati(Tessarc(), testo)) {
    Unisci(condizione, CondizioneDiClasse(classe, elenco));
  }
  const std::string cercato = PerRicerca(testo);
  constexpr std::size_t kLettereDiversi = 3;
  if (cercato.size() >= kLettereDiversi && PerRicerca(kDiversi).starts_with(cercato)) {
    Unisci(condizione, "Conto='DIVERSI' OR ContoA='DIVERSI'");
  }
  return condizione;
}

RicercaArticoli LettoreArticoli::Interpreta(const std::string& testo) {
  RicercaArticoli ricerca;
  const auto cercato = LeggiCercato(testo, ambiente_);
  if (cercato.testo.empty()) return ricerca;
  if (!cercato.data.Nulla()) {
    ricerca.condizione = sql::Criterio("Dt", "=", cercato.data);
    return ricerca;
  }
  ricerca.condizione = ConConto(cercato.testo);
  ricerca.immediata = ricerca.condizione.empty();
  if (cercato.numero) Unisci(ricerca.condizione, sql::Criterio("NumDoc", "=", *cercato.numero));
  ricerca.impossibile = ricerca.condizione.empty();
  return ricerca;
}

}  // namespace fenalto::screens

#include "screens/ledger/LettoreArticoli.h"

#include <algorithm>
#include <charconv>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto {
namespace {

constexpr std::size_t kContiCercati = 400;  // accounts that one search may stand for
constexpr std::string_view kDiversi = "DIVERSI";

std::optional<std::int64_t> ComeNumero(std::string_view testo) {
  std::int32_t numero = 0;
  const auto* fine = testo.data() + testo.size();
  const auto [dove, errore] = std::from_chars(testo.data(), fine, numero);
  if (errore != std::errc() || dove != fine || numero <= 0) return std::nullopt;
  return numero;
}

void Unisci(std::string& condizione, const std::string& altra) {
  if (altra.empty()) return;
  if (!condizione.empty()) condizione += " OR ";
  condizione += altra;
}

std::string DiClasse(const std::string& classe, const std::string& codici) {
  return "(" + Criterio("CFP", "=", classe) + " AND Conto IN (" + codici + ")) OR (" +
         Criterio("CfpA", "=", classe) + " AND ContoA IN (" + codici + "))";
}

}  // namespace

std::string LettoreArticoli::Descritto(const std::string& cfp, const std::string& conto) {
  if (conto.empty() || conto == kDiversi) return conto;
  auto [voce, nuova] = descrizioni_.try_emplace(cfp + "|" + conto);
  if (nuova) {
    voce->second = NzStr(ambiente_.Cerca("tessarc", "ContiClientiFornitori",
                                         {{"Cod", conto}, {"CFP", cfp}}, "Descrizione"));
  }
  return voce->second.empty() ? conto : conto + "  " + voce->second;
}

std::vector<ArticoloLetto> LettoreArticoli::Pagina(const RicercaArticoli& ricerca,
                                                   std::int64_t sotto, std::int64_t oltre,
                                                   int quante) {
  std::vector<ArticoloLetto> letti;
  if (ricerca.impossibile) return letti;
  std::string testo = "SELECT TOP " + std::to_string(quante) +
                      " NumDoc, Dt, CFP, Conto, CfpA, ContoA FROM ZArticoliNonIva WHERE " +
                      Criterio("Anno", "=", ambiente_.Anno()) + " AND " +
                      Criterio("NumDoc", "<", sotto) + " AND " + Criterio("NumDoc", ">", oltre);
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
  const std::string cercato = PerRicerca(testo);
  std::map<std::string, std::string> codici;  // by class
  std::size_t trovati = 0;
  Rs righe = Tessarc().Recordset("SELECT Cod, CFP, Descrizione FROM ContiClientiFornitori");
  for (; !righe.Eof() && trovati < kContiCercati; righe.MoveNext()) {
    const std::string codice = righe.Fields(0).Testo();
    if (!PerRicerca(codice).starts_with(cercato) &&
        PerRicerca(NzStr(righe.Fields(2))).find(cercato) == std::string::npos) {
      continue;
    }
    auto& elenco = codici[righe.Fields(1).Testo()];
    if (!elenco.empty()) elenco += ",";
    elenco += LetteraleSql(codice);
    ++trovati;
  }
  std::string condizione;
  for (const auto& [classe, elenco] : codici) Unisci(condizione, DiClasse(classe, elenco));
  constexpr std::size_t kLettereDiversi = 3;
  if (cercato.size() >= kLettereDiversi && PerRicerca(kDiversi).starts_with(cercato)) {
    Unisci(condizione, "Conto='DIVERSI' OR ContoA='DIVERSI'");
  }
  return condizione;
}

RicercaArticoli LettoreArticoli::Interpreta(const std::string& testo) {
  RicercaArticoli ricerca;
  const std::string cercato(Rifila(testo));
  if (cercato.empty()) return ricerca;
  const auto numero = ComeNumero(cercato);
  if (!numero) {
    const auto data = LeggiData(cercato, ambiente_.Anno(), ambiente_.Ora().Oggi());
    if (data && !data.Valore().Nulla()) {
      ricerca.condizione = Criterio("Dt", "=", data.Valore());
      return ricerca;
    }
  }
  ricerca.condizione = ConConto(cercato);
  ricerca.immediata = ricerca.condizione.empty();
  if (numero) Unisci(ricerca.condizione, Criterio("NumDoc", "=", *numero));
  ricerca.impossibile = ricerca.condizione.empty();
  return ricerca;
}

}  // namespace fenalto

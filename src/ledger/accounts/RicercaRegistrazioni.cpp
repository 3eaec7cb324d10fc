#include "ledger/accounts/RicercaRegistrazioni.h"

#include <charconv>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "ledger/accounts/ContiClientiFornitori.h"

namespace fenalto::ledger {
namespace {

constexpr std::size_t kContiCercati = 400;  // accounts that one search may stand for

std::optional<std::int64_t> ComeNumero(std::string_view testo) {
  std::int32_t numero = 0;
  const auto* fine = testo.data() + testo.size();
  const auto [dove, errore] = std::from_chars(testo.data(), fine, numero);
  if (errore != std::errc() || dove != fine || numero <= 0) return std::nullopt;
  return numero;
}

}  // namespace

TestoCercato LeggiCercato(const std::string& testo, Ambiente& ambiente) {
  TestoCercato cercato{std::string(Rifila(testo)), std::nullopt, Data()};
  cercato.numero = ComeNumero(cercato.testo);
  if (cercato.testo.empty() || cercato.numero) return cercato;
  const auto data = LeggiData(cercato.testo, ambiente.Anno(), ambiente.Ora().Oggi());
  if (data) cercato.data = data.Valore();
  return cercato;
}

std::map<std::string, std::string> ContiCercati(Archivio& tessarc, const std::string& testo,
                                                const std::optional<std::string>& classe) {
  const std::string cercato = PerRicerca(testo);
  std::map<std::string, std::string> codici;
  std::size_t trovati = 0;
  Rs righe = tessarc.Recordset("SELECT Cod, CFP, Descrizione FROM ContiClientiFornitori" +
                               (classe ? " WHERE " + sql::Criterio("CFP", "=", *classe) : ""));
  for (; !righe.Eof() && trovati < kContiCercati; righe.MoveNext()) {
    const std::string codice = righe.Fields(0).Testo();
    if (!PerRicerca(codice).starts_with(cercato) &&
        PerRicerca(NzStr(righe.Fields(2))).find(cercato) == std::string::npos) {
      continue;
    }
    auto& elenco = codici[righe.Fields(1).Testo()];
    if (!elenco.empty()) elenco += ",";
    elenco += sql::LetteraleSql(codice);
    ++trovati;
  }
  return codici;
}

const std::string& DescrizioniConti::Di(const std::string& cfp, const std::string& conto) {
  auto [voce, nuova] = lette_.try_emplace(cfp + "|" + conto);
  if (!nuova) return voce->second;
  voce->second = NomeConto(ambiente_, cfp, conto);
  // An account whose class was changed stands in the chart alone, for its movements of before.
  if (voce->second.empty() && UgualeTesto(cfp, "P")) {
    voce->second = NzStr(ambiente_.Cerca("tessarc", "Conti", {{"Cod", conto}}, "Descrizione"));
  }
  return voce->second;
}

}  // namespace fenalto::ledger

#include "warehouse/stock/SceltaProdotti.h"

#include "core/sql/Criterio.h"

namespace fenalto::warehouse {
namespace {

void Unisci(std::string& testo, const std::string& altro) {
  if (!testo.empty()) testo += " ";
  testo += altro;
}

}  // namespace

std::string CondizioneProdotti(const SceltaProdotti& scelta) {
  std::string condizione = "1=1";
  const auto aggiungi = [&](const char* campo, const char* operatore, const std::string& valore) {
    if (!valore.empty()) condizione += " AND " + sql::Criterio(campo, operatore, valore);
  };
  aggiungi("CodiciRiga.Cod", ">=", scelta.daCodiceRiga);
  aggiungi("CodiciRiga.Cod", "<=", scelta.aaCodiceRiga);
  aggiungi("CodiciRiga.CategoriaMag", "=", scelta.soloCategoriaMag);
  aggiungi("CodiciRiga.CategoriaMag2", "=", scelta.soloCategoriaMag2);
  aggiungi("CodiciRiga.GruppoMag", "=", scelta.soloGruppoMag);
  aggiungi("CodiciRiga.GruppoMag2", "=", scelta.soloGruppoMag2);
  if (!scelta.soloFornitore.empty()) {
    condizione += " AND CodiciRiga.Cod IN (SELECT prodottiFor_r.Cod FROM prodottiFor_r WHERE " +
                  sql::Criterio("prodottiFor_r.Fornitore", "=", scelta.soloFornitore) + ")";
  }
  return condizione;
}

std::string FiltriProdotti(const SceltaProdotti& scelta) {
  std::string testo;
  const auto aggiungi = [&](const char* scritta, const std::string& valore) {
    if (!valore.empty()) Unisci(testo, scritta + valore);
  };
  aggiungi("Solo Categoria ", scelta.soloCategoriaMag);
  aggiungi("Solo Categoria 2 ", scelta.soloCategoriaMag2);
  aggiungi("Solo gruppo ", scelta.soloGruppoMag);
  aggiungi("Solo gruppo 2 ", scelta.soloGruppoMag2);
  aggiungi("Solo fornitore ", scelta.soloFornitore);
  return testo;
}

std::string ScrittaProdotti(const SceltaProdotti& scelta) {
  std::string testo;
  if (!scelta.daCodiceRiga.empty()) Unisci(testo, "da prodotto " + scelta.daCodiceRiga);
  if (!scelta.aaCodiceRiga.empty()) Unisci(testo, "a " + scelta.aaCodiceRiga);
  if (const std::string filtri = FiltriProdotti(scelta); !filtri.empty()) Unisci(testo, filtri);
  return testo.empty() ? "tutti i prodotti" : testo;
}

}  // namespace fenalto::warehouse

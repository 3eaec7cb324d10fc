#include "vat/entry/LettoreFatture.h"

#include <map>

#include "core/sql/Criterio.h"
#include "vat/postings/RigheIva.h"

namespace fenalto::vat {

std::vector<FatturaLetta> LettoreFatture::Leggi(const std::string& condizione, int quante) {
  std::vector<FatturaLetta> lette;
  Rs righe = Tessarc().Recordset(
      "SELECT TOP " + std::to_string(quante) +
      " NProt, NumDoc, Dt, CFP, Conto, NFat, DtFat, Riva FROM ZarticoliFatture WHERE " +
      sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND " + condizione +
      " ORDER BY NumDoc DESC");
  for (; !righe.Eof(); righe.MoveNext()) {
    FatturaLetta letta;
    letta.nProt = righe.Fields(0).Intero();
    letta.numDoc = righe.Fields(1).Intero();
    letta.data = righe.Fields(2).Data();
    letta.conto = NzStr(righe.Fields(4));
    if (!letta.conto.empty()) {
      letta.descrConto = descrizioni_.Di(NzStr(righe.Fields(3)), letta.conto);
    }
    letta.nFat = NzStr(righe.Fields(5));
    letta.dtFat = righe.Fields(6).Data();
    letta.riva = righe.Fields(7).Testo();
    lette.push_back(std::move(letta));
  }
  LeggiTotali(lette);
  return lette;
}

void LettoreFatture::LeggiTotali(std::vector<FatturaLetta>& lette) {
  if (lette.empty()) return;
  std::map<std::int64_t, Importo> totali;
  std::string numeri;
  for (const auto& letta : lette) {
    numeri += (numeri.empty() ? "" : ",") + std::to_string(letta.numDoc);
  }
  Rs righe = Tessarc().Recordset(
      "SELECT NumDoc, Imponibile, Iva, IvaInd FROM Movimenti WHERE " +
      sql::Criterio("Anno", "=", ambiente_.Anno()) + " AND NumDoc IN (" + numeri + ") AND " +
      sql::Criterio("TipoRiga", "=", static_cast<int>(TipoRigaIva::Imponibile)));
  for (; !righe.Eof(); righe.MoveNext()) {
    totali[righe.Fields(0).Intero()] +=
        righe.Fields(1).Importo() + righe.Fields(2).Importo() + righe.Fields(3).Importo();
  }
  for (auto& letta : lette) letta.totale = totali[letta.numDoc];
}

std::vector<FatturaLetta> LettoreFatture::Pagina(const std::string& riva,
                                                 const std::string& condizione, std::int64_t fino,
                                                 int quante) {
  if (riva.empty()) return {};
  std::string testo =
      sql::Criterio("Riva", "=", riva) + " AND " + sql::Criterio("NumDoc", "<=", fino);
  if (!condizione.empty()) testo += " AND (" + condizione + ")";
  return Leggi(testo, quante);
}

std::optional<FatturaLetta> LettoreFatture::Una(std::int64_t numDoc) {
  auto lette = Leggi(sql::Criterio("NumDoc", "=", numDoc), 1);
  if (lette.empty()) return std::nullopt;
  return std::move(lette.front());
}

std::string LettoreFatture::Parti(const std::string& cercato, const std::string& classe) {
  std::string condizione;
  for (const auto& [trovata, codici] : ledger::ContiCercati(Tessarc(), cercato, classe)) {
    condizione += " OR (" + sql::Criterio("CFP", "=", trovata) + " AND Conto IN (" + codici + "))";
  }
  return condizione;
}

std::string LettoreFatture::Interpreta(const std::string& testo, const std::string& classe) {
  const auto cercato = ledger::LeggiCercato(testo, ambiente_);
  if (cercato.testo.empty()) return {};
  if (!cercato.data.Nulla()) {
    return sql::Criterio("Dt", "=", cercato.data) + " OR " +
           sql::Criterio("DtFat", "=", cercato.data);
  }
  std::string condizione = sql::CriterioInizia("NFat", cercato.testo);
  if (cercato.numero) {
    condizione += " OR " + sql::Criterio("NumDoc", "=", *cercato.numero) + " OR " +
                  sql::Criterio("NProt", "=", *cercato.numero);
  }
  return condizione + Parti(cercato.testo, classe);
}

}  // namespace fenalto::vat

#include "vat/entry/LettoreFatture.h"

#include <limits>
#include <map>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "vat/postings/RigheIva.h"

namespace fenalto::vat {
namespace {

/// Each row is read with its total, so a page is shorter than elsewhere.
constexpr int kPaginaFatture = 100;

}  // namespace

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

bool LettoreFatture::Registro(const std::string& riva, const std::string& classe) {
  classe_ = classe;
  if (riva == riva_) return false;
  riva_ = riva;
  return true;
}

void LettoreFatture::Comincia(const archives::FiltroElenco& filtro) {
  descrizioni_.Dimentica();
  condizione_ = Interpreta(filtro.testo);
  fino_ = std::numeric_limits<std::int32_t>::max();
  finita_ = riva_.empty();
}

archives::FonteElenco::Righe LettoreFatture::Avanti() {
  if (finita_) return {};
  std::string testo =
      sql::Criterio("Riva", "=", riva_) + " AND " + sql::Criterio("NumDoc", "<=", fino_);
  if (!condizione_.empty()) testo += " AND (" + condizione_ + ")";
  const auto lette = Leggi(testo, kPaginaFatture);
  finita_ = lette.size() < static_cast<std::size_t>(kPaginaFatture);
  if (!lette.empty()) fino_ = lette.back().numDoc - 1;
  Righe righe;
  for (const auto& letta : lette) {
    righe.push_back({letta.nProt, letta.numDoc, letta.data, letta.conto, letta.descrConto,
                     letta.nFat, letta.dtFat, letta.totale});
  }
  return righe;
}

std::string LettoreFatture::Testo(std::int64_t numDoc) {
  const auto lette = Leggi(sql::Criterio("NumDoc", "=", numDoc), 1);
  if (lette.empty()) return {};
  const auto& letta = lette.front();
  return "registro " + letta.riva + " prot. " + std::to_string(letta.nProt) + "   " +
         letta.data.Testo() + "   " + ScriviImporto(letta.totale, ambiente_.Euro() ? 2 : 0) +
         "   " + letta.conto + "  " + letta.descrConto;
}

std::string LettoreFatture::Parti(const std::string& cercato) {
  std::string condizione;
  for (const auto& [trovata, codici] : ledger::ContiCercati(Tessarc(), cercato, classe_)) {
    condizione += " OR (" + sql::Criterio("CFP", "=", trovata) + " AND Conto IN (" + codici + "))";
  }
  return condizione;
}

std::string LettoreFatture::Interpreta(const std::string& testo) {
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
  return condizione + Parti(cercato.testo);
}

}  // namespace fenalto::vat

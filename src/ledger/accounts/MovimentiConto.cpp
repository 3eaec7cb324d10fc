#include "ledger/accounts/MovimentiConto.h"

#include "core/sql/Criterio.h"

namespace fenalto::ledger {

std::vector<RigaMovimentoConto> MovimentiDiConto(Ambiente& ambiente, const std::string& cfp,
                                                 const std::string& conto, int anno, Data daDt,
                                                 Data aaDt, std::size_t massimo) {
  std::string sql =
      "SELECT Articoli.Dt, Articoli.Anno, Articoli.NumDoc, Movimenti.Causale, "
      "Movimenti.Descrizione, Movimenti.ContoControp, Movimenti.DiversiControp, "
      "Movimenti.ImpoDare, Movimenti.ImpoAvere FROM Movimenti INNER JOIN Articoli ON "
      "(Movimenti.Anno = Articoli.Anno) AND (Movimenti.NumDoc = Articoli.NumDoc) WHERE " +
      sql::Criterio("Movimenti.CFP", "=", cfp) + " AND " +
      sql::Criterio("Movimenti.Conto", "=", conto) + " AND " +
      sql::Criterio("Articoli.Dt", ">=", daDt.Nulla() ? Ambiente::DataMinima() : daDt) + " AND " +
      sql::Criterio("Articoli.Dt", "<=", aaDt);
  if (anno != 0) sql += " AND " + sql::Criterio("Articoli.Anno", "=", anno);
  sql += " ORDER BY Articoli.Dt, Articoli.Anno, Articoli.NumDoc, Movimenti.Posi";

  std::vector<RigaMovimentoConto> righe;
  Importo saldo;
  for (Rs rs = ambiente.ArchivioDi("tessarc").Recordset(sql); !rs.Eof() && righe.size() < massimo;
       rs.MoveNext()) {
    RigaMovimentoConto riga;
    riga.dt = rs.Fields(0).Data();
    riga.anno = static_cast<int>(rs.Fields(1).Intero());
    riga.articolo = rs.Fields(2).Intero();
    riga.causale = rs.Fields(3).Testo();
    riga.descrizione = rs.Fields(4).Testo();
    riga.controp = rs.Fields(5).Testo();
    if (rs.Fields(6).Booleano()) riga.controp += "+diversi";
    riga.dare = rs.Fields(7).Importo();
    riga.avere = rs.Fields(8).Importo();
    saldo += riga.dare - riga.avere;
    riga.saldo = saldo;
    righe.push_back(std::move(riga));
  }
  return righe;
}

}  // namespace fenalto::ledger

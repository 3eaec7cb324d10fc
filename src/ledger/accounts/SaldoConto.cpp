#include "ledger/accounts/SaldoConto.h"

#include "core/sql/Criterio.h"

namespace fenalto::ledger {

namespace {

constexpr std::string_view kCampoCausale = "Movimenti.Causale";

std::string E(const std::string& criterio) {
  return " And " + criterio;
}

/// What both queries share, up to the terms on the causal.
std::string Inizio(const SaldoConto::Richiesta& r) {
  std::string testo =
      "SELECT Movimenti.CFP, Movimenti.Conto, Sum(Movimenti.ImpoDare) AS SommaDiImpoDare, "
      "Sum(Movimenti.ImpoAvere) AS SommaDiImpoAvere";
  testo += " FROM Movimenti ";
  testo +=
      " LEFT JOIN Articoli ON (Movimenti.Anno = Articoli.Anno) AND "
      "(Movimenti.NumDoc = Articoli.NumDoc)";
  testo += " Where 1=1 ";
  if (r.anno != 0) testo += E(sql::Criterio("ARTICOLI.Anno", "=", r.anno));
  testo += E(sql::Criterio("ARTICOLI.Dt", ">=", r.daData));
  testo += E(sql::Criterio("ARTICOLI.Dt", "<=", r.aData));
  if (!r.mantieniAperto) {
    testo += E(sql::Criterio("Movimenti.Conto", "=", r.conto));
    testo += E(sql::Criterio("Movimenti.CFP", "=", r.cfp));
  }
  return testo;
}

std::string Fine() {
  return " GROUP BY Movimenti.CFP, Movimenti.Conto ORDER BY Movimenti.CFP, Movimenti.Conto";
}

}  // namespace

std::string SaldoConto::TestoMovimenti(const Richiesta& richiesta) {
  std::string testo = Inizio(richiesta);
  testo += E(sql::Criterio(kCampoCausale, "<>", kCausaleApertura));
  testo += E(sql::Criterio(kCampoCausale, "<>", kCausaleAperturaProvvisoria));
  if (!richiesta.causaleEsclusa.empty()) {
    testo += E(sql::Criterio(kCampoCausale, "<>", richiesta.causaleEsclusa));
  }
  return testo + Fine();
}

std::string SaldoConto::TestoAperture(const Richiesta& richiesta) {
  return Inizio(richiesta) + " And (" + sql::Criterio(kCampoCausale, "=", kCausaleApertura) +
         " or " + sql::Criterio(kCampoCausale, "=", kCausaleAperturaProvvisoria) + ")" + Fine();
}

Saldo SaldoConto::Calcola(const Richiesta& richiesta) {
  if (!movimenti_) movimenti_ = archivio_.Recordset(TestoMovimenti(richiesta));
  if (!aperture_) aperture_ = archivio_.Recordset(TestoAperture(richiesta));

  Saldo saldo;
  const std::string conto = sql::Criterio("conto", "=", richiesta.conto) + " and " +
                            sql::Criterio("cfp", "=", richiesta.cfp);
  if (!movimenti_->FindFirst(conto)) {
    saldo.totaleDare = movimenti_->Fields("SommaDiImpoDare").Importo();
    saldo.totaleAvere = movimenti_->Fields("SommaDiImpoAvere").Importo();
  }
  if (!aperture_->FindFirst(conto)) {
    saldo.saldoIniziale = aperture_->Fields("SommaDiImpoDare").Importo() -
                          aperture_->Fields("SommaDiImpoAvere").Importo();
  }
  if (richiesta.chiudiAlTermine || !richiesta.mantieniAperto) Chiudi();
  return saldo;
}

void SaldoConto::Chiudi() {
  movimenti_.reset();
  aperture_.reset();
}

}  // namespace fenalto::ledger

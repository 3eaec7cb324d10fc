#include "duedates/payments/InsolutoRiba.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

Rs Riga(Ambiente& ambiente, std::int64_t numero) {
  return ambiente.ArchivioDi("scadenzario")
      .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("Numero", "=", numero));
}

/// What an unpaid receipt keeps of the one that was presented.
constexpr const char* kRipresi[] = {"ImportoE",       "NFat",      "DtFat",  "Riva",     "NProt",
                                    "BancaPresentaz", "Ndistinta", "DtPres", "Pagamento"};

}  // namespace

InsolutoRiba::InsolutoRiba(Ambiente& ambiente)
    : ScadenzaDigitata(ambiente, FinestraPagamento::Insoluti) {
  Abbandona();
}

void InsolutoRiba::Proponi() {
  dati_.Scrivi("Dt", dati_.Leggi("DtReg"));
  // Paid by hand: a receipt that came back is presented again only when somebody says so.
  dati_.Scrivi("Tipo", "01");
  dati_.Scrivi("Stato", kStatoAperta);
  dati_.Scrivi("Descrizione", "Insoluto fatt. ");
}

std::int64_t InsolutoRiba::Numero() const {
  return vista_ ? vista_->numero : 0;
}

bool InsolutoRiba::Apri(std::int64_t numero) {
  const Rs riga = Riga(ambiente_, numero);
  if (riga.Eof() || !UgualeTesto(riga.Fields("Programma").Testo(), kProgrammaInsoluto)) {
    ambiente_.Dialogo().Messaggio(
        "la scadenza n. " + std::to_string(numero) + " non è di un insoluto", Icona::Avviso);
    return false;
  }
  const Scadenza letta = ScadenzaDi(riga);
  ScegliParte(letta.cfp, letta.conto);
  Abbandona();
  dati_.Carica(riga);
  dati_.Scrivi("DescrizioneContabile", dati_.Testo("Descrizione"));
  dati_.Consolida();
  vista_ = letta;
  return true;
}

std::vector<RicevutaPresentata> InsolutoRiba::Presentate(std::size_t massimo) {
  std::vector<RicevutaPresentata> trovate;
  Rs r = ambiente_.ArchivioDi("scadenzario")
             .Recordset("SELECT TOP " + std::to_string(massimo) + " * FROM SCADENZE WHERE " +
                        sql::Criterio("CFP", "=", Cfp()) + " AND " +
                        sql::Criterio("Conto", "=", Conto()) + " AND " +
                        sql::Criterio("Tipo", "=", kTipoRiba) + " AND " +
                        sql::Criterio("Stato", "=", kStatoPagata) +
                        " AND Ndistinta<>0 ORDER BY DtPres DESC, Numero DESC");
  for (; !r.Eof(); r.MoveNext()) {
    trovate.push_back({r.Fields("Numero").Intero(), r.Fields("Dt").Data(),
                       r.Fields("ImportoE").Importo(), r.Fields("NFat").Intero(),
                       r.Fields("DtFat").Data(), r.Fields("BancaPresentaz").Testo(),
                       r.Fields("Ndistinta").Intero(), r.Fields("DtPres").Data(),
                       r.Fields("Descrizione").Testo()});
  }
  SegnaTornate(trovate);
  return trovate;
}

void InsolutoRiba::SegnaTornate(std::vector<RicevutaPresentata>& ricevute) {
  Rs r = ambiente_.ArchivioDi("scadenzario")
             .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("CFP", "=", Cfp()) +
                        " AND " + sql::Criterio("Conto", "=", Conto()) + " AND " +
                        sql::Criterio("Programma", "=", kProgrammaInsoluto) + " ORDER BY Numero");
  for (; !r.Eof(); r.MoveNext()) {
    // Two receipts that are alike in all this came back one at a time.
    const auto tornata = std::ranges::find_if(ricevute, [&r](const RicevutaPresentata& p) {
      return p.insoluto == 0 && p.nDistinta == r.Fields("Ndistinta").Intero() &&
             UgualeTesto(p.banca, r.Fields("BancaPresentaz").Testo()) &&
             p.nFat == r.Fields("NFat").Intero() && p.dtFat == r.Fields("DtFat").Data() &&
             p.importoE == r.Fields("ImportoE").Importo();
    });
    if (tornata != ricevute.end()) tornata->insoluto = r.Fields("Numero").Intero();
  }
}

void InsolutoRiba::Riprendi(std::int64_t numero) {
  const Rs riga = Riga(ambiente_, numero);
  if (riga.Eof()) return;
  for (const char* campo : kRipresi) dati_.Scrivi(campo, riga.Fields(campo));
  std::string testo = "Insoluto fatt. ";
  if (const std::int64_t fattura = riga.Fields("NFat").Intero(); fattura != 0) {
    testo += std::to_string(fattura);
    const Data giorno = riga.Fields("DtFat").Data();
    if (!giorno.Nulla()) testo += " del " + giorno.Testo();
  }
  dati_.Scrivi("Descrizione", testo);
  DatoLasciato("Descrizione");
}

void InsolutoRiba::Completa(ScadenzaConRegistrazione& cosa) const {
  // What a customer owes again stands in debit; an amount below zero goes over to the other side.
  cosa.parteInDare = (cosa.cfp == "C") != ImportoE().Negativo();
  cosa.conRegistrazione = cosa.conRegistrazione && !RegContEffettuata();
  for (const char* campo :
       {"Riva", "NProt", "BancaPresentaz", "Ndistinta", "DtPres", "Pagamento"}) {
    cosa.campi.emplace_back(campo, dati_.Leggi(campo));
  }
  cosa.campi.emplace_back("Programma", kProgrammaInsoluto);
}

std::string InsolutoRiba::Riuscita() const {
  std::string testo = "- insoluto inserito in scadenzario";
  if (RegContEffettuata()) {
    testo += "\n- L'articolo contabile " + std::to_string(vista_->articolo) + " resta com'era";
  }
  return testo;
}

}  // namespace fenalto::duedates

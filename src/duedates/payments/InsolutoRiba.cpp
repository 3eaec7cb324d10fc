#include "duedates/payments/InsolutoRiba.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

Rs Riga(Ambiente& ambiente, std::int64_t numero) {
  return ambiente.ArchivioDi("scadenzario")
      .Recordset("SELECT * FROM SCADENZE WHERE " + sql::Criterio("Numero", "=", numero));
}

/// Whether a row, or what was typed, read by `campo`, names the batch and the invoice of a receipt.
template <typename Campo>
bool StessaPresentazione(const RicevutaPresentata& p, const Campo& campo) {
  return p.nDistinta == campo("Ndistinta").Intero() &&
         UgualeTesto(p.banca, campo("BancaPresentaz").Testo()) &&
         UgualeTesto(p.nFat, campo("NFat").Testo()) && p.dtFat == campo("DtFat").Data();
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
  ripresa_ = 0;
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
                       r.Fields("ImportoE").Importo(), r.Fields("NFat").Testo(),
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
    // Two receipts that are alike in all this came back one at a time. The amount may have the
    // bank's charges on it: it only tells which of several.
    const Importo importo = r.Fields("ImportoE").Importo();
    const auto campo = [&r](const char* nome) { return r.Fields(nome); };
    RicevutaPresentata* tornata = nullptr;
    for (RicevutaPresentata& p : ricevute) {
      if (p.insoluto != 0 || !StessaPresentazione(p, campo)) continue;
      if (tornata == nullptr || p.importoE == importo) tornata = &p;
      if (p.importoE == importo) break;
    }
    if (tornata != nullptr) tornata->insoluto = r.Fields("Numero").Intero();
  }
}

std::optional<RicevutaPresentata> InsolutoRiba::Ricevuta() {
  constexpr std::size_t kTutte = 100'000;
  const auto campo = [this](const char* nome) { return dati_.Leggi(nome); };
  std::optional<RicevutaPresentata> trovata;
  for (RicevutaPresentata& p : Presentate(kTutte)) {
    const bool sua = ripresa_ != 0 ? p.numero == ripresa_ : StessaPresentazione(p, campo);
    if (sua && (!trovata || trovata->insoluto != 0)) trovata = std::move(p);
  }
  return trovata;
}

bool InsolutoRiba::Rinuncia() {
  if (Aperto() || dati_.Leggi("Ndistinta").Intero() == 0) return false;
  const auto ricevuta = Ricevuta();
  if (!ricevuta) return false;
  const std::string nome = "la ricevuta n. " + std::to_string(ricevuta->numero) +
                           " della distinta " + std::to_string(ricevuta->nDistinta);
  if (ricevuta->insoluto != 0 &&
      !ambiente_.Dialogo().Conferma(nome + " è già stata registrata insoluta, con la scadenza n. " +
                                    std::to_string(ricevuta->insoluto) +
                                    "\nla registro un'altra volta")) {
    return true;
  }
  return SegniContrari(ImportoE(), ricevuta->importoE) &&
         !ambiente_.Dialogo().Conferma("l'importo " + ScriviImporto(ImportoE(), kDecimaliScadenza) +
                                       " ha il segno contrario a quello che aveva " + nome +
                                       "\nproseguo ugualmente");
}

void InsolutoRiba::Riprendi(std::int64_t numero) {
  const Rs riga = Riga(ambiente_, numero);
  if (riga.Eof()) return;
  ripresa_ = numero;
  for (const char* campo : kRipresi) dati_.Scrivi(campo, riga.Fields(campo));
  bancaRipresa_ = dati_.Testo("BancaPresentaz");
  std::string testo = "Insoluto fatt. ";
  if (const std::string fattura = riga.Fields("NFat").Testo(); !fattura.empty()) {
    testo += fattura;
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

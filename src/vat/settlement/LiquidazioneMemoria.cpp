// What a settlement takes from the store and leaves in it.
#include <algorithm>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "vat/settlement/LiquidazioneInterno.h"

namespace fenalto::vat {

namespace {

constexpr const char* kCodCredito = "01";
constexpr const char* kNonVersato = "importo non versato periodo precedente";

std::string Chiave(int anno, const std::string& periodo) {
  return sql::Criterio("Anno", "=", anno) + " and " + sql::Criterio("MESETRIMESTRE", "=", periodo);
}

Rs Chiusura(Ambiente& ambiente, int anno, const std::string& periodo) {
  return ambiente.ArchivioDi("tessarc").Recordset("select * from ChiusureIva where " +
                                                  Chiave(anno, periodo));
}

/// The row of the credit on hand is made when it is missing.
void PreparaCredito(Ambiente& ambiente) {
  if (ambiente.Esiste("tessarc", "CreditoIva", {{"Cod", kCodCredito}})) return;
  ambiente.ArchivioDi("tessarc").Esegui(
      "INSERT INTO CreditoIva ( Cod, CreditoIva ) values ('01',0)");
}

/// What the period before left unpaid because it was below the minimum.
Importo NonVersato(Ambiente& ambiente, const PeriodoIva& periodo) {
  const Data giorno = periodo.Primo().PiuGiorni(-1);
  const std::string prima = ChiavePeriodo(giorno, IvaTrimestrale(ambiente, giorno.Anno()));
  Rs riga = Chiusura(ambiente, giorno.Anno(), prima);
  if (riga.Eof()) return {};
  const Importo importo = riga.Fields("Importo").Importo();
  return importo > Importo() && importo < kMinimoVersamento ? importo : Importo();
}

/// First settled period after this one, "04/2024"; empty when there is none.
std::string GiaLiquidatoDopo(Ambiente& ambiente, const PeriodoIva& periodo) {
  Rs riga = ambiente.ArchivioDi("tessarc").Recordset(
      "select top 1 Anno, MESETRIMESTRE from ChiusureIva where " +
      sql::Criterio("Anno", ">", periodo.anno) + " or (" +
      sql::Criterio("Anno", "=", periodo.anno) + " and " +
      sql::Criterio("MESETRIMESTRE", ">", periodo.cod) + ") order by Anno, MESETRIMESTRE");
  if (riga.Eof()) return {};
  return riga.Fields("MESETRIMESTRE").Testo() + "/" + riga.Fields("Anno").Testo();
}

void ScriviCredito(Ambiente& ambiente, const Liquidazione& l, LogContabile& log) {
  const std::string dopo = GiaLiquidatoDopo(ambiente, l.periodo);
  if (!dopo.empty()) {
    // The credit on hand is that of the last period settled: an earlier one doesn't bring it back.
    log.avvisi.push_back("Il periodo " + dopo +
                         " è già stato liquidato: il credito da riportare resta quello che c'era.\n"
                         "Ristampare in definitiva anche i periodi seguenti, con credito "
                         "precedente " +
                         ScriviImporto(l.Credito(), 2) + ".");
    return;
  }
  PreparaCredito(ambiente);
  ambiente.ArchivioDi("tessarc").Esegui(
      "update CreditoIva set CreditoIva=" + sql::LetteraleSql(l.Credito()) + " where " +
      sql::Criterio("Cod", "=", kCodCredito));
}

void ScriviRighe(Ambiente& ambiente, const Liquidazione& l) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  tessarc.Esegui("DELETE * FROM CHIUSIVA WHERE " + Chiave(l.periodo.anno, l.periodo.cod));
  if (!ImpostazioneAttiva(ambiente, "ChiusIva", true)) return;
  int n = 0;
  for (const RigaLiquidazione& riga : l.righe) {
    tessarc.Inserisci("ChiusIva", {{"Anno", l.periodo.anno},
                                   {"MeseTrimestre", l.periodo.cod},
                                   {"N", ++n},
                                   {"ScrittaPeriodo", l.periodo.testo},
                                   {"R_Descrizione", riga.descrizione},
                                   {"R_Impo", riga.importo}});
  }
}

/// Stored lines don't keep whether they are a note: the text tells.
bool Nota(const std::string& descrizione) {
  const auto tra = [&](const auto& note) {
    return std::find(note.begin(), note.end(), descrizione) != note.end();
  };
  return tra(kNoteSottoMinimo) || tra(kNoteVentilazione);
}

}  // namespace

DatiLiquidazione ProponiLiquidazione(Ambiente& ambiente, const PeriodoIva& periodo) {
  if (!periodo.Annuale()) PreparaCredito(ambiente);
  return PrevediLiquidazione(ambiente, periodo);
}

DatiLiquidazione PrevediLiquidazione(Ambiente& ambiente, const PeriodoIva& periodo) {
  DatiLiquidazione dati;
  // An unreadable percentage is none: the user sees it before the print.
  if (const auto proRata = LeggiImporto(ambiente.Config("ProRata")))
    dati.proRata = proRata.Valore();
  if (periodo.Annuale()) return dati;
  dati.creditoPrec =
      Nz(ambiente.Cerca("tessarc", "CreditoIva", {{"Cod", kCodCredito}}, "CreditoIva")).Importo();
  // Printed again, a period starts from the credit it started from, not from the one it left.
  if (Rs riga = Chiusura(ambiente, periodo.anno, periodo.cod); !riga.Eof()) {
    dati.creditoPrec = riga.Fields("CreditoPrec").Importo();
  }
  if (const Importo resto = NonVersato(ambiente, periodo); !resto.Zero()) {
    dati.piu[0] = {kNonVersato, resto};
  }
  return dati;
}

void MemorizzaLiquidazione(Ambiente& ambiente, const Liquidazione& liquidazione,
                           const std::vector<TotaleRegistro>& registri, const DatiGiri& giri,
                           int ultimaPagina, LogContabile& log) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const PeriodoIva& periodo = liquidazione.periodo;
  Importo interessiPrima;
  if (Rs riga = Chiusura(ambiente, periodo.anno, periodo.cod); !riga.Eof()) {
    interessiPrima = riga.Fields("ImportoInteressi").Importo();
  }
  tessarc.Esegui("delete * from CHIUSUREIVA where " + Chiave(periodo.anno, periodo.cod));
  tessarc.Inserisci("ChiusureIva", {{"Anno", periodo.anno},
                                    {"MESETRIMESTRE", periodo.cod},
                                    {"CreditoPrec", liquidazione.dati.creditoPrec},
                                    {"Importo1", liquidazione.risultato},
                                    {"ImportoInteressi", liquidazione.interessi},
                                    {"Importo", std::max(liquidazione.daVersare, Importo())},
                                    {"UltPag", ultimaPagina}});
  ScriviCredito(ambiente, liquidazione, log);
  ScriviRighe(ambiente, liquidazione);
  for (const IvaRegistro& registro : liquidazione.registri) {
    tessarc.Esegui("update RegistriIva set Importochiusura=" + sql::LetteraleSql(registro.iva) +
                   " where " + sql::Criterio("Cod", "=", registro.riva));
  }
  RiscriviGiri(ambiente, liquidazione, registri, giri, interessiPrima, log);
}

std::vector<RigaLiquidazione> LiquidazioneMemorizzata(Ambiente& ambiente, int anno,
                                                      const std::string& periodo) {
  std::vector<RigaLiquidazione> righe;
  for (Rs riga = ambiente.ArchivioDi("tessarc").Recordset("select * from ChiusIva where " +
                                                          Chiave(anno, periodo) + " order by N");
       !riga.Eof(); riga.MoveNext()) {
    const std::string descrizione = riga.Fields("R_Descrizione").Testo();
    righe.push_back({descrizione, riga.Fields("R_Impo").Importo(), Nota(descrizione)});
  }
  return righe;
}

}  // namespace fenalto::vat

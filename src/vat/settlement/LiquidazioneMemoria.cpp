// What a settlement takes from the store and leaves in it.
#include <algorithm>

#include "core/session/ImpostazioneAttiva.h"
#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/FormatoImporto.h"
#include "vat/settlement/LiquidazioneInterno.h"
#include "vat/settlement/MinimoVersamento.h"

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

Importo LeggiCredito(Ambiente& ambiente) {
  return Nz(ambiente.Cerca("tessarc", "CreditoIva", {{"Cod", kCodCredito}}, "CreditoIva"))
      .Importo();
}

/// Settled periods before one (`<`) or after it (`>`), the nearest first; at its end there is none.
Rs Vicina(Ambiente& ambiente, const PeriodoIva& periodo, const char* verso) {
  const std::string ordine = *verso == '<' ? " desc" : "";
  return ambiente.ArchivioDi("tessarc").Recordset(
      "select top 1 * from ChiusureIva where " + sql::Criterio("Anno", verso, periodo.anno) +
      " or (" + sql::Criterio("Anno", "=", periodo.anno) + " and " +
      sql::Criterio("MESETRIMESTRE", verso, periodo.cod) + ") order by Anno" + ordine +
      ", MESETRIMESTRE" + ordine);
}

/// An amount of a year in the currency of another.
Importo InValuta(Importo importo, bool euro, bool inEuro) {
  constexpr int kCentesimi = 2;
  if (euro == inEuro) return importo;
  return inEuro ? LireInEuro(importo, kCentesimi) : EuroInLire(importo, true);
}

/// The period of a stored settlement.
PeriodoIva PeriodoDi(Ambiente& ambiente, const Rs& chiusura) {
  PeriodoIva periodo = PeriodoDiChiave(static_cast<int>(chiusura.Fields("Anno").Intero()),
                                       chiusura.Fields("MESETRIMESTRE").Testo());
  periodo.euro = AnnoInEuro(ambiente, static_cast<int>(chiusura.Fields("Anno").Intero()));
  return periodo;
}

/// What a period begins with, in its own currency. Periods that were never settled in between lose
/// nothing.
struct Riporto {
  Importo credito;
  Importo nonVersato;  ///< owed, but too little to be paid
};

Riporto RiportoDi(Ambiente& ambiente, const PeriodoIva& periodo) {
  Riporto riporto{LeggiCredito(ambiente), {}};
  Rs prima = Vicina(ambiente, periodo, "<");
  Rs dopo = Vicina(ambiente, periodo, ">");
  // The credit on hand is what the last period settled of all has left.
  if (prima.Eof()) {
    if (!dopo.Eof()) {
      riporto.credito = InValuta(dopo.Fields("CreditoPrec").Importo(),
                                 PeriodoDi(ambiente, dopo).euro, periodo.euro);
    }
    return riporto;
  }
  const PeriodoIva precedente = PeriodoDi(ambiente, prima);
  const Importo risultato = prima.Fields("Importo1").Importo();
  if (!dopo.Eof()) riporto.credito = risultato.Negativo() ? -risultato : Importo();
  riporto.credito = InValuta(riporto.credito, precedente.euro, periodo.euro);
  const Importo importo = prima.Fields("Importo").Importo();
  if (SottoMinimo(precedente, importo)) {
    riporto.nonVersato = InValuta(importo, precedente.euro, periodo.euro);
  }
  return riporto;
}

void ScriviCredito(Ambiente& ambiente, const Liquidazione& l, LogContabile& log) {
  Rs dopo = Vicina(ambiente, l.periodo, ">");
  if (!dopo.Eof()) {
    // The credit on hand is that of the last period settled: an earlier one doesn't bring it back.
    log.avvisi.push_back(
        "Il periodo " + dopo.Fields("MESETRIMESTRE").Testo() + "/" + dopo.Fields("Anno").Testo() +
        " è già stato liquidato: il credito da riportare resta quello che c'era.\n"
        "Ristampare in definitiva anche i periodi seguenti, con credito "
        "precedente " +
        ScriviImporto(InValuta(l.Credito(), l.periodo.euro, PeriodoDi(ambiente, dopo).euro), 2) +
        ".");
    return;
  }
  ScriviCreditoIva(ambiente, l.Credito());
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
  return NotaSottoMinimo(descrizione) || tra(kNoteVentilazione);
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
  const Riporto riporto = RiportoDi(ambiente, periodo);
  dati.creditoPrec = riporto.credito;
  // Printed again, a period starts from the credit it started from, not from the one it left.
  if (Rs riga = Chiusura(ambiente, periodo.anno, periodo.cod); !riga.Eof()) {
    dati.creditoPrec = riga.Fields("CreditoPrec").Importo();
  }
  if (!riporto.nonVersato.Zero()) dati.piu[0] = {kNonVersato, riporto.nonVersato};
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

Importo CreditoPrimaDi(Ambiente& ambiente, int anno) {
  Rs prima = ambiente.ArchivioDi("tessarc").Recordset(
      "select top 1 CreditoPrec from ChiusureIva where " + sql::Criterio("Anno", "=", anno) +
      " order by MESETRIMESTRE");
  PeriodoIva fine;
  fine.anno = anno;
  fine.cod = "Z";
  if (prima.Eof() || !Vicina(ambiente, fine, ">").Eof()) return LeggiCredito(ambiente);
  const Importo credito = prima.Fields("CreditoPrec").Importo();
  // The credit on hand is in the currency of the last period settled, if there is one.
  PeriodoIva inizio;
  inizio.anno = anno;
  Rs rimasta = Vicina(ambiente, inizio, "<");
  if (rimasta.Eof()) return credito;
  const bool euro = AnnoInEuro(ambiente, anno);
  const bool rimastaEuro = PeriodoDi(ambiente, rimasta).euro;
  // There and back again costs a lira: what it was itself is known.
  const Importo suo = -rimasta.Fields("Importo1").Importo();
  if (InValuta(suo, rimastaEuro, euro) == credito) return suo;
  return InValuta(credito, euro, rimastaEuro);
}

Importo EliminaLiquidazioniDi(Ambiente& ambiente, int anno) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string condizione = sql::Criterio("anno", "=", anno);
  const Importo credito = CreditoPrimaDi(ambiente, anno);
  ScriviCreditoIva(ambiente, credito);
  tessarc.Esegui("delete * from UltProtStRegIva where " + condizione);
  tessarc.Esegui("delete * from ChiusureIva where " + condizione);
  tessarc.Esegui("delete * from ChiusIva where " + condizione);
  // With no period left, the ranges are proposed from the beginning again.
  if (tessarc.Singolo("SELECT Count(*) FROM UltProtStRegIva").Intero() == 0) {
    tessarc.Esegui("UPDATE RegistriIva SET UltProtSt=0");
  }
  return credito;
}

void ScriviCreditoIva(Ambiente& ambiente, Importo credito) {
  PreparaCredito(ambiente);
  ambiente.ArchivioDi("tessarc").Esegui(
      "update CreditoIva set CreditoIva=" + sql::LetteraleSql(credito) + " where " +
      sql::Criterio("Cod", "=", kCodCredito));
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

// What a definitive run leaves in the books, all of it or nothing; and taking it away again.
#include <algorithm>

#include "core/records/Conferma.h"
#include "core/sql/Criterio.h"
#include "vat/register/RegistroIvaInterno.h"

namespace fenalto::vat {
namespace {

/// Rows of a query as text, for comparison.
std::string Righe(Archivio& archivio, const std::string& sql) {
  std::string testo;
  for (Rs rs = archivio.Recordset(sql); !rs.Eof(); rs.MoveNext()) {
    for (std::size_t i = 0; i < rs.Colonne().size(); ++i) testo += rs.Fields(i).Neutro() + '\x1f';
    testo += '\n';
  }
  return testo;
}

std::string Testo(const std::vector<TotaleCodice>& totali) {
  std::string testo;
  for (const TotaleCodice& t : totali) {
    testo +=
        t.codIva + " " + t.imponibile.Testo() + " " + t.iva.Testo() + " " + t.ivaInd.Testo() + ";";
  }
  return testo + "\n";
}

std::vector<Coppia> RigaTotale(const TotaleRegistro& totale, const PeriodoIva& periodo,
                               const TotaleCodice& codice) {
  return {{"Anno", periodo.anno},
          {"Riva", totale.intervallo.riva},
          {"CodIva", codice.codIva},
          {"PERIODO", periodo.cod},
          {"DaNProt", totale.intervallo.daNProt},
          {"AaNprot", totale.intervallo.aaNProt},
          {"Tipo", totale.intervallo.tipo},
          {"Imponibile", codice.imponibile},
          {"Iva", codice.iva},
          {"IvaInd", codice.ivaInd}};
}

}  // namespace

std::string RegistroIvaUnico::Interno::Impronta(const std::vector<TotaleRegistro>& totali) {
  const std::string anno = sql::Criterio("Anno", "=", periodo.anno);
  std::string testo =
      Righe(tessarc, "SELECT * FROM ChiusureIva WHERE " + anno + " ORDER BY MESETRIMESTRE") +
      Righe(tessarc,
            "SELECT * FROM UltProtStRegIva WHERE " + anno + " ORDER BY MeseTrimestre, Riva");
  for (const TotaleRegistro& totale : totali) {
    testo += totale.intervallo.riva + ":" + Testo(totale.codici) + Testo(totale.differiti);
  }
  return testo;
}

void RegistroIvaUnico::Interno::ScriviTotali(const TotaleRegistro& totale) {
  // An empty code is the register's own line: it takes rows that had none.
  TotaleCodice propria;
  for (const TotaleCodice& codice : totale.codici) {
    if (codice.codIva.empty()) {
      propria = codice;
      continue;
    }
    std::vector<Coppia> riga = RigaTotale(totale, periodo, codice);
    riga.emplace_back("DEFINITIVO", true);
    tessarc.Inserisci("TotaliIva", riga);
  }
  for (const TotaleCodice& codice : totale.differiti) {
    tessarc.Inserisci("TotaliIvaEP", RigaTotale(totale, periodo, codice));
  }
  std::vector<Coppia> riga = RigaTotale(totale, periodo, propria);
  riga.emplace_back("TOTALEIVA", totale.Iva());
  riga.emplace_back("DEFINITIVO", true);
  tessarc.Inserisci("TotaliIva", riga);
}

void RegistroIvaUnico::Interno::ScriviProtocolli(const IntervalloRegistro& intervallo) {
  if (intervallo.daIncassi) return;
  tessarc.Inserisci("UltProtStRegIva",
                    {{"Anno", periodo.anno},
                     {"Riva", intervallo.riva},
                     {"MeseTrimestre", periodo.cod},
                     {"DaNProt", intervallo.daNProt},
                     {"UltProtSt", std::max(intervallo.aaNProt, intervallo.daNProt - 1)}});
  if (intervallo.Vuoto()) return;
  tessarc.Esegui("UPDATE RegistriIva SET UltProtSt=" + sql::LetteraleSql(intervallo.aaNProt) +
                 " WHERE " + sql::Criterio("Cod", "=", intervallo.riva));
}

bool RegistroIvaUnico::Interno::Memorizza(const DatiStampaRegistro& dati,
                                          const std::string& impronta, int ultimaPagina) {
  LogContabile log;
  // What was printed must be what is stored, and nobody else's store may be covered.
  const auto immutato = [&] {
    const auto adesso = Totali();
    const bool uguale = adesso && Impronta(adesso.Valore()) == impronta;
    if (!uguale) {
      Avviso(
          "mentre la stampa era in corso un'altra postazione ha stampato in definitiva o ha "
          "cambiato le registrazioni del periodo " +
          periodo.testo +
          ":\nnon è stato memorizzato nulla, confermare di nuovo il periodo e ripetere la "
          "stampa");
    }
    return uguale;
  };
  const auto scrivi = [&] {
    const std::string chiave = sql::Criterio("Anno", "=", periodo.anno) + " AND " +
                               sql::Criterio("PERIODO", "=", periodo.cod);
    tessarc.Esegui("DELETE * FROM TOTALIIVA WHERE " + chiave);
    tessarc.Esegui("DELETE * FROM TOTALIIVAEP WHERE " + chiave);
    for (const TotaleRegistro& totale : dati.totali) {
      const bool niente = totale.intervallo.daIncassi && totale.codici.empty();
      if (!totale.intervallo.Vuoto() && !niente) ScriviTotali(totale);
    }
    // The annual summary settles nothing and closes no protocol.
    if (!periodo.Annuale()) {
      tessarc.Esegui("DELETE * FROM UltProtStRegIva WHERE " +
                     sql::Criterio("Anno", "=", periodo.anno) + " AND " +
                     sql::Criterio("MeseTrimestre", "=", periodo.cod));
      for (const TotaleRegistro& totale : dati.totali) ScriviProtocolli(totale.intervallo);
      MemorizzaLiquidazione(ambiente, dati.liquidazione, dati.totali, dati.giri, ultimaPagina, log);
    }
    return std::string();
  };
  const bool memorizzata = records::Esegui(
      ambiente, {.nonRiuscita = "stampa definitiva del periodo " + periodo.testo +
                                " non memorizzata: nulla è cambiato, la si può ripetere\n",
                 .dopoErrore = "",
                 .numerazioni = {"ARTICOLI"},
                 .sottoBlocco = immutato,
                 .scrivi = scrivi});
  if (!memorizzata) return false;
  for (const std::string& avviso : log.avvisi) Avviso(avviso);
  if (!log.testo.empty()) ambiente.Dialogo().Annuncia(log.testo);
  return true;
}

bool RegistroIvaUnico::EliminaLiquidazioni() {
  Interno& io = *interno_;
  const int anno = io.ambiente.Anno();
  if (!io.ambiente.Dialogo().Conferma(
          "Comfarma eliminazione liquidazioni iva dell'anno " + std::to_string(anno) +
          " stampate indefinitiva\n"
          " - Le registrazioni contabili relative non verranno eliminate\n"
          " - Successivamente sarà possibile ristampare i registri e le liquidazioni")) {
    return false;
  }
  const auto elimina = [&] {
    EliminaLiquidazioniDi(io.ambiente, anno);
    return std::string();
  };
  const bool eliminate = records::Esegui(
      io.ambiente, {.nonRiuscita = "liquidazioni iva non eliminate: nulla è cambiato\n",
                    .dopoErrore = "",
                    .numerazioni = {"ARTICOLI"},
                    .ambito = Transazione::Ambito::Tessarc,
                    .scrivi = elimina});
  if (eliminate) io.ambiente.Dialogo().Annuncia("liquidazioni iva eliminate");
  return eliminate;
}

}  // namespace fenalto::vat

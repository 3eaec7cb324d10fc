#include "duedates/reports/LetturaScadenze.h"

#include "core/sql/Criterio.h"
#include "core/values/Testo.h"
#include "duedates/schedules/RicercaScadenze.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {
namespace {

// A party that is no longer in the list of accounts keeps its due dates.
constexpr const char* kSelezione =
    "SELECT SCADENZE.CFP, SCADENZE.Conto, ContiClientiFornitori.Descrizione AS Ragsoc, "
    "SCADENZE.Dt, SCADENZE.Tipo, SCADENZE.Stato, SCADENZE.Anno, SCADENZE.Articolo, SCADENZE.NFat, "
    "SCADENZE.DtFat, SCADENZE.ImportoE, SCADENZE.ImportoPagatoE, SCADENZE.Descrizione, "
    "SCADENZE.anticipo, SCADENZE.Programma, SCADENZE.Ndistinta FROM SCADENZE LEFT JOIN "
    "ContiClientiFornitori ON (SCADENZE.Conto = "
    "ContiClientiFornitori.Cod) AND (SCADENZE.CFP = ContiClientiFornitori.CFP) WHERE ";

/// Columns of the statement, in its order.
enum Colonna : std::size_t {
  kCfp,
  kConto,
  kRagsoc,
  kDt,
  kTipo,
  kStato,
  kAnno,
  kArticolo,
  kNFat,
  kDtFat,
  kImporto,
  kPagato,
  kDescrizione,
  kAnticipo,
  kProgramma,
  kDistinta
};

std::string Condizione(const SceltaScadenze& s) {
  std::string testo = sql::Criterio("SCADENZE.CFP", "=", s.cfp);
  const auto aggiungi = [&testo](const std::string& altra) { testo += " AND " + altra; };
  if (!s.daCliFor.empty()) aggiungi(sql::Criterio("SCADENZE.Conto", ">=", s.daCliFor));
  if (!s.aCliFor.empty()) aggiungi(sql::Criterio("SCADENZE.Conto", "<=", s.aCliFor));
  if (!s.daData.Nulla()) aggiungi(sql::Criterio("SCADENZE.Dt", ">=", s.daData));
  if (!s.aData.Nulla()) aggiungi(sql::Criterio("SCADENZE.Dt", "<=", s.aData));
  if (!s.anchePagate) {
    aggiungi(CondizioneAperta());
    return testo;
  }
  // What became part of another due date is told there, but for what had been paid of it.
  aggiungi("(" + CondizioneAperta() + " OR " +
           sql::Criterio("SCADENZE.Programma", "<>", kProgrammaRaggruppata) +
           " OR SCADENZE.ImportoPagatoE<>0)");
  if (!s.pagateDal.Nulla()) {
    // Where the day of payment wasn't kept, the due date stands for it.
    aggiungi("(" + CondizioneAperta() + " OR " +
             sql::Criterio("SCADENZE.DtPag", ">=", s.pagateDal) + " OR (" +
             sql::Criterio("SCADENZE.DtPag", "=", Data()) + " AND " +
             sql::Criterio("SCADENZE.Dt", ">=", s.pagateDal) + "))");
  }
  return testo;
}

ScadenzaStampata Leggi(const Rs& rs) {
  ScadenzaStampata s;
  s.cfp = rs.Fields(kCfp).Testo();
  s.conto = rs.Fields(kConto).Testo();
  s.ragsoc = NzStr(rs.Fields(kRagsoc));
  s.dt = rs.Fields(kDt).Data();
  s.tipo = rs.Fields(kTipo).Testo();
  s.stato = rs.Fields(kStato).Testo();
  s.anno = static_cast<int>(rs.Fields(kAnno).Intero());
  s.articolo = rs.Fields(kArticolo).Intero();
  s.nFat = rs.Fields(kNFat).Testo();
  s.dtFat = rs.Fields(kDtFat).Data();
  s.importo = rs.Fields(kImporto).Importo();
  s.pagato = rs.Fields(kPagato).Importo();
  s.descrizione = rs.Fields(kDescrizione).Testo();
  s.anticipo = rs.Fields(kAnticipo).Booleano();
  if (s.Aperta()) return s;
  s.raggruppata = UgualeTesto(rs.Fields(kProgramma).Testo(), kProgrammaRaggruppata);
  if (s.raggruppata) s.importo = s.pagato;
  s.inDistinta = !s.raggruppata && s.pagato.Zero() && rs.Fields(kDistinta).Intero() != 0;
  return s;
}

std::string Intervallo(const std::string& da, const std::string& a, const char* prima,
                       const char* seconda) {
  std::string testo;
  if (!da.empty()) testo += std::string(prima) + da;
  if (!a.empty()) testo += (testo.empty() ? "" : " ") + std::string(seconda) + a;
  return testo;
}

}  // namespace

bool ScadenzaStampata::Aperta() const {
  return ConfrontaTesto(stato, kStatoPagata) < 0;
}

std::string ScadenzaStampata::StatoInParola() const {
  if (raggruppata) return "raggrupp.";
  if (inDistinta) return "presentata";
  if (!Aperta()) return "pagata";
  if (ConfrontaTesto(stato, kStatoPresentabile) >= 0) return "presentata";
  return ConfrontaTesto(stato, kStatoParziale) >= 0 ? "parziale" : "aperta";
}

std::string ScadenzaStampata::DescrizioneSegnata() const {
  std::string testo = LunghezzaTesto(nFat) > kCaratteriFattura ? "ft. " + nFat : std::string();
  const auto aggiungi = [&testo](const std::string& altro) {
    testo += (testo.empty() || altro.empty() ? "" : " - ") + altro;
  };
  if (anticipo) aggiungi("ACCONTO");
  aggiungi(descrizione);
  return testo;
}

std::string ScadenzaStampata::NumeroFattura() const {
  return FatturaIncolonnata(nFat);
}

Rinvio ScadenzaStampata::RinvioARegistrazione() const {
  return articolo == 0 ? AlConto(cfp, conto) : AllaRegistrazione(anno, articolo);
}

std::optional<Rifiuto> DifettoScelta(const SceltaScadenze& s) {
  if (!s.daData.Nulla() && !s.aData.Nulla() && s.daData > s.aData) {
    return Rifiuto{
        "la data iniziale " + s.daData.Testo() + " è successiva a quella finale " + s.aData.Testo(),
        "DaData"};
  }
  if (!s.daCliFor.empty() && !s.aCliFor.empty() && ConfrontaTesto(s.daCliFor, s.aCliFor) > 0) {
    return Rifiuto{"il codice iniziale " + s.daCliFor + " viene dopo quello finale " + s.aCliFor,
                   "DaCliFor"};
  }
  return std::nullopt;
}

std::string NomeClasse(const SceltaScadenze& scelta) {
  return UgualeTesto(scelta.cfp, "C") ? "clienti" : "fornitori";
}

std::string ScrittaScelta(const SceltaScadenze& s) {
  std::string testo = s.anchePagate ? "scadenze aperte e pagate" : "scadenze aperte";
  const std::string periodo = Intervallo(s.daData.Testo(), s.aData.Testo(), "dal ", "al ");
  if (!periodo.empty()) testo += " " + periodo;
  const std::string parti = Intervallo(s.daCliFor, s.aCliFor, "da ", "a ");
  return testo + (parti.empty() ? "" : ", " + NomeClasse(s) + " " + parti);
}

std::int64_t ContaScadenze(Ambiente& ambiente, const SceltaScadenze& scelta) {
  return ambiente.ArchivioDi("scadenzario")
      .Singolo("SELECT Count(*) FROM SCADENZE WHERE " + Condizione(scelta))
      .Intero();
}

bool ScorriScadenze(Ambiente& ambiente, const SceltaScadenze& scelta, OrdineScadenze ordine,
                    const std::function<bool(const ScadenzaStampata&)>& riga) {
  const char* per = ordine == OrdineScadenze::PerConto
                        ? " ORDER BY SCADENZE.CFP, SCADENZE.Conto, SCADENZE.Dt, SCADENZE.Numero"
                        : " ORDER BY SCADENZE.Dt, SCADENZE.Conto, SCADENZE.Numero";
  Rs rs = ScadenzarioConConti(ambiente).Recordset(kSelezione + Condizione(scelta) + per);
  for (; !rs.Eof(); rs.MoveNext()) {
    if (!riga(Leggi(rs))) return false;
  }
  return true;
}

}  // namespace fenalto::duedates

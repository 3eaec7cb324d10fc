#include "duedates/schedules/RicercaScadenze.h"

#include "core/sql/Criterio.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {
namespace {

constexpr const char* kColonne =
    "SELECT SCADENZE.Conto, ContiClientiFornitori.Descrizione as Ragsoc, SCADENZE.Dt AS DataScad,"
    "Scadenze.anticipo as ant,SCADENZE.ImportoE, SCADENZE.ImportoPagatoE AS Pagato, "
    "mid(SCADENZE.Descrizione,1,35) as Descrizione_scadenza, "
    "SCADENZE.NProt, SCADENZE.NFat, SCADENZE.DtFat, "
    "SCADENZE.Tipo, SCADENZE.Stato, "
    "SCADENZE.Numero, SCADENZE.CFP FROM SCADENZE "
    " INNER JOIN ContiClientiFornitori ON (SCADENZE.Conto = ContiClientiFornitori.Cod)"
    " AND (SCADENZE.CFP = ContiClientiFornitori.CFP)";

/// Columns of the statement, in its order.
enum Colonna : std::size_t {
  kConto,
  kRagsoc,
  kDataScad,
  kAnticipo,
  kImporto,
  kPagato,
  kDescrizione,
  kNProt,
  kNFat,
  kDtFat,
  kTipo,
  kStato,
  kNumero,
  kCfp
};

class Condizioni {
 public:
  void Testo(const char* campo, const std::string& valore) {
    if (!valore.empty()) Aggiungi(sql::Criterio(campo, "=", valore));
  }
  void Numero(const char* campo, std::int64_t valore) {
    if (valore != 0) Aggiungi(sql::Criterio(campo, "=", valore));
  }
  void Giorno(const char* campo, const char* operatore, Data valore) {
    if (!valore.Nulla()) Aggiungi(sql::Criterio(campo, operatore, valore));
  }
  void Aggiungi(const std::string& condizione) {
    testo_ += (testo_.empty() ? " WHERE " : " AND ") + condizione;
  }
  [[nodiscard]] const std::string& Tutte() const { return testo_; }

 private:
  std::string testo_;
};

RigaScadenza Riga(const Rs& rs) {
  RigaScadenza r;
  r.cfp = rs.Fields(kCfp).Testo();
  r.conto = rs.Fields(kConto).Testo();
  r.ragsoc = rs.Fields(kRagsoc).Testo();
  r.dataScad = rs.Fields(kDataScad).Data();
  r.anticipo = rs.Fields(kAnticipo).Booleano();
  r.importoE = rs.Fields(kImporto).Importo();
  r.pagato = rs.Fields(kPagato).Importo();
  r.descrizione = rs.Fields(kDescrizione).Testo();
  r.nProt = rs.Fields(kNProt).Intero();
  r.nFat = rs.Fields(kNFat).Testo();
  r.dtFat = rs.Fields(kDtFat).Data();
  r.tipo = rs.Fields(kTipo).Testo();
  r.stato = rs.Fields(kStato).Testo();
  r.numero = rs.Fields(kNumero).Intero();
  return r;
}

}  // namespace

std::string SqlScadenze(const RicercaScadenze& r) {
  Condizioni condizioni;
  condizioni.Testo("SCADENZE.CFP", r.cfp);
  condizioni.Testo("SCADENZE.CONTO", r.conto);
  condizioni.Testo("SCADENZE.STATO", r.stato);
  if (!r.anchePagate && r.stato.empty()) condizioni.Aggiungi(CondizioneAperta());
  if (r.soloAnticipi) condizioni.Aggiungi(sql::Criterio("SCADENZE.ANTICIPO", "=", true));
  condizioni.Numero("SCADENZE.ANNO", r.anno);
  condizioni.Testo("SCADENZE.nfat", r.nFat);
  condizioni.Giorno("SCADENZE.dtfat", "=", r.dtFat);
  condizioni.Numero("SCADENZE.nPROT", r.nProt);
  condizioni.Numero("SCADENZE.articolo", r.articolo);
  condizioni.Testo("SCADENZE.RIVA", r.riva);
  condizioni.Giorno("SCADENZE.DT", ">=", r.daData);
  condizioni.Giorno("SCADENZE.DT", "<=", r.aData);
  if (r.numeri) {
    // None has number 0.
    std::string elenco = "0";
    for (const std::int64_t numero : *r.numeri) elenco += "," + std::to_string(numero);
    condizioni.Aggiungi("SCADENZE.NUMERO IN (" + elenco + ")");
  }
  return kColonne + condizioni.Tutte() + " ORDER BY " + r.ordine;
}

Archivio& ScadenzarioCon(Ambiente& ambiente, const char* tabella) {
  Archivio& scadenzario = ambiente.ArchivioDi("scadenzario");
  // Linking forgets the statements prepared so far: once a session is enough.
  if (scadenzario.Catalogo().Tabella(tabella) == nullptr) {
    scadenzario.CollegaTabella("tessarc", tabella);
  }
  return scadenzario;
}

Archivio& ScadenzarioConConti(Ambiente& ambiente) {
  return ScadenzarioCon(ambiente, "ContiClientiFornitori");
}

void CercaScadenze(Ambiente& ambiente, const RicercaScadenze& ricerca,
                   const std::function<bool(const RigaScadenza&)>& riga) {
  Rs rs = ScadenzarioConConti(ambiente).Recordset(SqlScadenze(ricerca));
  for (; !rs.Eof(); rs.MoveNext()) {
    if (!riga(Riga(rs))) return;
  }
}

}  // namespace fenalto::duedates

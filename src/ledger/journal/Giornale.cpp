#include "ledger/journal/Giornale.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kPerArticolo = "PerArticolo";

std::optional<Rifiuto> ControllaScelta(const SceltaGiornale& scelta) {
  if (scelta.aaDt.Nulla()) return Rifiuto{"manca la data finale: indicare il periodo", "AaDt"};
  if (scelta.daDt > scelta.aaDt) {
    return Rifiuto{"la data iniziale " + scelta.daDt.Testo() + " è successiva a quella finale " +
                       scelta.aaDt.Testo() + ": correggere il periodo",
                   "DaDt"};
  }
  if (scelta.intesto && scelta.daPag < 1) {
    return Rifiuto{"le pagine si numerano da 1 in su", "DaPag"};
  }
  return std::nullopt;
}

std::string CondizionePeriodo(const SceltaGiornale& scelta, int anno) {
  const Data da = scelta.daDt.Nulla() ? Ambiente::DataMinima() : scelta.daDt;
  return sql::Criterio("Articoli.Anno", "=", anno) + " AND " +
         sql::Criterio("Articoli.Dt", ">=", da) + " AND " +
         sql::Criterio("Articoli.Dt", "<=", scelta.aaDt);
}

bool CiSonoProvvisori(Ambiente& ambiente, const SceltaGiornale& scelta) {
  return ambiente.ArchivioDi("tessarc")
             .Singolo(
                 "SELECT Count(*) FROM Movimenti LEFT JOIN Articoli ON (Movimenti.Anno = "
                 "Articoli.Anno) AND (Movimenti.NumDoc = Articoli.NumDoc) WHERE " +
                 CondizionePeriodo(scelta, ambiente.Anno()) + " AND " +
                 sql::Criterio("Movimenti.Causale", "=", kCausaleAperturaProvvisoria))
             .Intero() > 0;
}

/// The last day printed in definitive, of the year or of those before it; the null date for none.
Data UltimaStampata(Ambiente& ambiente) {
  return ambiente.ArchivioDi("tessarc")
      .Singolo("SELECT Max(dt) FROM UltimaDataLibro WHERE " +
               sql::Criterio("Anno", "<=", ambiente.Anno()))
      .Data();
}

/// The first and the last day of registrations.
struct Giorni {
  Data primo;
  Data ultimo;
  void Aggiungi(const Giorni& altri) {
    if (altri.primo.Nulla()) return;
    primo = primo.Nulla() ? altri.primo : std::min(primo, altri.primo);
    ultimo = std::max(ultimo, altri.ultimo);
  }
};

/// Days of the registrations that meet a condition and belong in a book; null dates for none.
Giorni GiorniDi(Ambiente& ambiente, const std::string& condizione) {
  Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT Min(Articoli.Dt), Max(Articoli.Dt) FROM Articoli INNER JOIN "
      "Movimenti ON (Articoli.Anno = Movimenti.Anno) AND (Articoli.NumDoc = "
      "Movimenti.NumDoc) WHERE " +
      condizione + " AND " + sql::Criterio("Movimenti.Causale", "<>", kCausaleAperturaProvvisoria));
  if (rs.Eof() || rs.Fields(0).Nullo()) return {};
  return {rs.Fields(0).Data(), rs.Fields(1).Data()};
}

/// Days of the years before that come after their last mark: the year's own print won't have them.
Giorni GiorniAnniPrima(Ambiente& ambiente, Data stampata) {
  const Data capodanno = Data::DaGma(1, 1, ambiente.Anno()).value();
  if (stampata.Nulla() || stampata >= capodanno.PiuGiorni(-1)) return {};
  return GiorniDi(ambiente, sql::Criterio("Articoli.Anno", ">=", stampata.Anno()) + " AND " +
                                sql::Criterio("Articoli.Anno", "<", ambiente.Anno()) + " AND " +
                                sql::Criterio("Articoli.Dt", ">", stampata) + " AND " +
                                sql::Criterio("Articoli.Dt", "<", capodanno));
}

/// What is asked when the book would lack registrations made since the last mark; empty when it has
/// them all.
std::string DomandaSaltate(Ambiente& ambiente, const SceltaGiornale& scelta) {
  const Data stampata = UltimaStampata(ambiente);
  SceltaGiornale finora = scelta;
  finora.daDt = stampata.Nulla() ? Data() : stampata.PiuGiorni(1);
  std::string saltate = sql::Criterio("Articoli.NumDoc", "<", scelta.daArticolo);
  if (!scelta.daDt.Nulla()) saltate += " OR " + sql::Criterio("Articoli.Dt", "<", scelta.daDt);
  Giorni giorni = GiorniAnniPrima(ambiente, stampata);
  giorni.Aggiungi(
      GiorniDi(ambiente, CondizionePeriodo(finora, ambiente.Anno()) + " AND (" + saltate + ")"));
  if (giorni.primo.Nulla()) return "";
  return "dal " + giorni.primo.Testo() + " al " + giorni.ultimo.Testo() +
         " ci sono registrazioni che non stanno in questa stampa né in una definitiva "
         "precedente:\nsegnando il giornale come stampato fino al " +
         scelta.aaDt.Testo() + " ne resterebbero fuori\nProseguo ugualmente ?";
}

/// The mark of the year only goes on: printing an earlier period again leaves it.
void SegnaDefinitiva(Ambiente& ambiente, Data fino) {
  Archivio& archivio = ambiente.ArchivioDi("tessarc");
  const std::string anno = sql::Criterio("Anno", "=", ambiente.Anno());
  Transazione transazione(ambiente.Basi());
  if (archivio.Singolo("SELECT Count(*) FROM UltimaDataLibro WHERE " + anno).Intero() == 0) {
    archivio.Inserisci("UltimaDataLibro", {{"Anno", ambiente.Anno()}, {"dt", fino}});
  } else {
    archivio.Esegui("UPDATE UltimaDataLibro SET dt=" + sql::LetteraleSql(fino) + " WHERE " + anno +
                    " AND " + sql::Criterio("dt", "<", fino));
  }
  transazione.Conferma();
}

}  // namespace

std::string CondizioneGiornale(const SceltaGiornale& scelta, int anno) {
  // The sum keeps the engine from searching the rows by this term in place of their key, which
  // would read the whole year once a registration.
  return CondizionePeriodo(scelta, anno) + " AND " +
         sql::Criterio("Articoli.NumDoc + 0", ">=", scelta.daArticolo);
}

SceltaGiornale Giornale::Proposta() {
  Archivio& archivio = ambiente_.ArchivioDi("tessarc");
  const std::vector<Coppia> anno = {{"Anno", ambiente_.Anno()}};
  SceltaGiornale scelta;
  // A year without a mark of its own goes on from the years before it.
  const Data stampata = UltimaStampata(ambiente_);
  const Data prima = ambiente_.Min("Dt", "Articoli", anno, archivio).Data();
  scelta.daDt = Data::DaGma(1, 1, ambiente_.Anno()).value();
  if (!prima.Nulla()) scelta.daDt = std::min(scelta.daDt, prima);
  if (!stampata.Nulla()) scelta.daDt = std::max(scelta.daDt, stampata.PiuGiorni(1));
  scelta.aaDt = std::max(scelta.daDt, ambiente_.Max("Dt", "Articoli", anno, archivio).Data());
  scelta.perArticolo = ambiente_.Config(kPerArticolo) != "False";
  return scelta;
}

bool Giornale::Stampa(const SceltaGiornale& scelta) {
  if (Rifiuta(ambiente_, ControllaScelta(scelta))) return false;
  ambiente_.ScriviImpostazione({}, "config", kPerArticolo, scelta.perArticolo ? "True" : "False");
  if (CiSonoProvvisori(ambiente_, scelta)) {
    ambiente_.Dialogo().Messaggio(
        "Ci sono saldi di apertura provvisori che non vengono stampati sul giornale",
        Icona::Avviso);
  }
  if (!StampaRigheGiornale(ambiente_, uscite_, scelta)) return false;
  Dialoghi& dialogo = ambiente_.Dialogo();
  if (!dialogo.Conferma("STAMPA DEFINITIVA ?")) return true;
  const std::string saltate = DomandaSaltate(ambiente_, scelta);
  if (saltate.empty() || dialogo.Conferma(saltate)) SegnaDefinitiva(ambiente_, scelta.aaDt);
  return true;
}

}  // namespace fenalto::ledger

#include "ledger/journal/Giornale.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "ledger/accounts/SaldoConto.h"
#include "ledger/journal/GiornaleInterno.h"

namespace fenalto::ledger {

namespace {

constexpr const char* kPerArticolo = "PerArticolo";

std::string ControllaScelta(const SceltaGiornale& scelta) {
  if (scelta.aaDt.Nulla()) return "manca la data finale: indicare il periodo";
  if (scelta.daDt > scelta.aaDt) {
    return "la data iniziale " + scelta.daDt.Testo() + " è successiva a quella finale " +
           scelta.aaDt.Testo() + ": correggere il periodo";
  }
  if (scelta.intesto && scelta.daPag < 1) return "le pagine si numerano da 1 in su";
  return "";
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
  const Data stampata = archivio
                            .Singolo("SELECT Max(dt) FROM UltimaDataLibro WHERE " +
                                     sql::Criterio("Anno", "<=", ambiente_.Anno()))
                            .Data();
  const Data prima = ambiente_.Min("Dt", "Articoli", anno, archivio).Data();
  scelta.daDt = Data::DaGma(1, 1, ambiente_.Anno()).value();
  if (!prima.Nulla()) scelta.daDt = std::min(scelta.daDt, prima);
  if (!stampata.Nulla()) scelta.daDt = std::max(scelta.daDt, stampata.PiuGiorni(1));
  scelta.aaDt = std::max(scelta.daDt, ambiente_.Max("Dt", "Articoli", anno, archivio).Data());
  scelta.perArticolo = ambiente_.Config(kPerArticolo) != "False";
  return scelta;
}

bool Giornale::Stampa(const SceltaGiornale& scelta) {
  if (const std::string errore = ControllaScelta(scelta); !errore.empty()) {
    ambiente_.Dialogo().Messaggio(errore, Icona::Avviso);
    return false;
  }
  ambiente_.ScriviImpostazione({}, "config", kPerArticolo, scelta.perArticolo ? "True" : "False");
  if (CiSonoProvvisori(ambiente_, scelta)) {
    ambiente_.Dialogo().Messaggio(
        "Ci sono saldi di apertura provvisori che non vengono stampati sul giornale",
        Icona::Avviso);
  }
  if (!StampaRigheGiornale(ambiente_, uscite_, scelta)) return false;
  if (ambiente_.Dialogo().Conferma("STAMPA DEFINITIVA ?")) SegnaDefinitiva(ambiente_, scelta.aaDt);
  return true;
}

}  // namespace fenalto::ledger

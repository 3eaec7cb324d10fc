#include "admin/repairs/Riparazioni.h"

#include <memory>

#include "admin/repairs/RipetizioniArticoli.h"
#include "core/records/Conferma.h"
#include "core/session/CopieDitta.h"
#include "core/sql/Criterio.h"
#include "core/values/FormatoImporto.h"
#include "ledger/accounts/ContiClientiFornitori.h"
#include "ledger/registrations/TestataArticolo.h"
#include "vat/settlement/LiquidazioneIva.h"

namespace fenalto::admin {

namespace fs = std::filesystem;

namespace {

constexpr std::int64_t kOgni = 200;  // registrations between two signs of life
constexpr std::string_view kAnnullata = "annullata";

/// The copy before a repair; empty when it couldn't be made, and then nothing is repaired (told).
fs::path CopiaDaTenere(Ambiente& ambiente, std::string_view motivo) {
  const auto copia = CopiaPrimaDi(ambiente, motivo);
  if (copia) return copia.Valore();
  ambiente.Dialogo().Messaggio(copia.Errore().messaggio + "\nNon è stato cambiato nulla.",
                               Icona::Errore);
  return {};
}

/// Runs a repair over tessarc alone under the lock of the registrations.
bool Ripara(Ambiente& ambiente, const std::string& nome,
            const std::function<std::string()>& scrivi) {
  return records::Esegui(ambiente, {.nonRiuscita = nome + " non riuscito: ",
                                    .dopoErrore = "\nNulla è cambiato, si può riprovare.",
                                    .dopoRifiuto = ": nulla è cambiato.",
                                    .numerazioni = {"ARTICOLI"},
                                    .ambito = Transazione::Ambito::Tessarc,
                                    .scrivi = scrivi});
}

}  // namespace

bool Riparazioni::AggiornaDiversi() {
  const fs::path copia = CopiaDaTenere(ambiente_, "aggiornamento conti diversi");
  if (copia.empty()) return false;
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  std::int64_t viste = 0;
  std::size_t cambiate = 0;
  const auto scrivi = [&]() -> std::string {
    const std::int64_t totale =
        tessarc.Singolo("select Count(*) from Articoli where Riva=''").Intero();
    const auto avanzamento = ambiente_.Dialogo().Avvia("Aggiornamento delle registrazioni", totale);
    bool fermata = false;
    const auto passo = [&] {
      if (++viste % kOgni == 0) fermata = !avanzamento->Avanza(viste);
      return !fermata;
    };
    const auto daRifare = TestateDaRifare(tessarc, passo);
    if (fermata) return std::string(kAnnullata);
    for (const TestataDaRifare& una : daRifare) {
      ledger::AggiornaTestata(tessarc, una.id, una.numDoc,
                              {{"CFP", una.dare.cfp},
                               {"Conto", una.dare.conto},
                               {"CfpA", una.avere.cfp},
                               {"ContoA", una.avere.conto}});
    }
    cambiate = daRifare.size();
    return {};
  };
  if (!Ripara(ambiente_, "aggiornamento", scrivi)) return false;
  ambiente_.Dialogo().Annuncia("Lavoro eseguito\nregistrazioni viste " + std::to_string(viste) +
                               ", corrette " + std::to_string(cambiate) + NominaCopia(copia));
  return true;
}

bool Riparazioni::RifaiContiClientiFornitori() {
  const fs::path copia = CopiaDaTenere(ambiente_, "ricostruzione conti clienti fornitori");
  if (copia.empty()) return false;
  Archivio& tessarc = ambiente_.ArchivioDi("tessarc");
  std::int64_t scritte = 0;
  const auto scrivi = [&]() -> std::string {
    struct Origine {
      const char* testo;
      const char* cfp;
      std::vector<const char*> descrizioni;
    };
    const Origine origini[] = {{"select * from CLIENTI", "C", {"ragsoc1", "ragsoc2"}},
                               {"select * from FORNITORI", "F", {"ragsoc1", "ragsoc2"}},
                               {"select * from CONTI", "P", {"Descrizione"}}};
    tessarc.Esegui("DELETE * FROM CONTICLIENTIFORNITORI");
    for (const Origine& origine : origini) {
      for (Rs rs = tessarc.Recordset(origine.testo); !rs.Eof(); rs.MoveNext()) {
        ledger::AggiungiVoce(
            tessarc,
            {rs.Fields("Cod").Testo(), origine.cfp, rs.Fields(origine.descrizioni.front()).Testo(),
             origine.descrizioni.size() > 1 ? rs.Fields(origine.descrizioni.back()).Testo() : ""});
        ++scritte;
      }
    }
    return {};
  };
  if (!Ripara(ambiente_, "ricostruzione", scrivi)) return false;
  ambiente_.Dialogo().Annuncia("lavoro eseguito\nconti, clienti e fornitori: " +
                               std::to_string(scritte) + NominaCopia(copia));
  return true;
}

bool Riparazioni::EliminaLiquidazioni(int anno) {
  const std::string delAnno = std::to_string(anno);
  if (!ambiente_.Dialogo().Conferma(
          "Attenzione:\n"
          "- le registrazioni contabili dei giriconto sul conto 'erario conto iva' dovranno essere "
          "eliminate manualmente\n"
          "- l'eventiale credito iva, relativo all'anno precedente, dovrà essere forzato "
          "manualmente\n"
          "poi si potrà ristampare il registro iva con le relative liquidazioni\n"
          "Proseguo ?",
          "Liquidazioni IVA dell'anno " + delAnno)) {
    return false;
  }
  const fs::path copia = CopiaDaTenere(ambiente_, "eliminazione liquidazioni " + delAnno);
  if (copia.empty()) return false;
  Importo credito;
  const auto scrivi = [&]() -> std::string {
    credito = vat::EliminaLiquidazioniDi(ambiente_, anno);
    return {};
  };
  if (!Ripara(ambiente_, "eliminazione delle liquidazioni", scrivi)) return false;
  ambiente_.ScriviImpostazione({}, "config", "RivaUnico", "");
  ambiente_.Dialogo().Annuncia("eliminazione effettuata\ncredito iva di nuovo da riportare: " +
                               ScriviImporto(credito, 2) + NominaCopia(copia));
  return true;
}

}  // namespace fenalto::admin

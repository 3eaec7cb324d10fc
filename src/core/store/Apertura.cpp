#include "core/store/Apertura.h"

#include <algorithm>
#include <memory>

#include "core/store/NucleoBasi.h"
#include "core/store/engine/sqlite/MotoreSqlite.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using Causa = ErroreArchivio::Causa;

std::string Nome(const fs::path& file) {
  return "«" + file.string() + "»";
}

/// The step the database is at; throws when the program doesn't know it.
int PassoDi(engine::Connessione& connessione, const engine::Base& base, int ultimo) {
  const engine::StatoBase stato = connessione.Stato(base.nome);
  if (!stato.propria) {
    throw ErroreArchivio(
        Causa::Danneggiato,
        Nome(base.luogo) +
            " non è un archivio di questo programma: indicare la cartella giusta o "
            "ripristinare una copia dalla cartella Copie");
  }
  if (stato.solaLettura) {
    throw ErroreArchivio(Causa::SolaLettura,
                         "l'archivio " + Nome(base.luogo) +
                             " è in sola lettura: dare il permesso di scrittura al file");
  }
  if (stato.passo > ultimo) {
    throw ErroreArchivio(
        Causa::TroppoNuovo,
        "l'archivio " + Nome(base.luogo) +
            " è stato aggiornato da una versione più recente del programma (passo " +
            std::to_string(stato.passo) + ", qui si arriva al " + std::to_string(ultimo) +
            "): installare la versione nuova anche su questa stazione");
  }
  return stato.passo;
}

/// Opens the base alone and runs the steps that are missing, in one transaction.
void EseguiMancanti(const engine::Motore& motore, const engine::Base& base,
                    const std::vector<PassoSchema>& passi, const engine::Opzioni& opzioni,
                    bool nuovo) {
  const auto connessione = motore.Apri({base}, opzioni, nuovo);
  connessione->Inizia(true);
  // Read inside the transaction: another station may have done it while this one waited.
  const int daPasso = nuovo ? 0 : PassoDi(*connessione, base, passi.back().numero);
  if (daPasso < passi.back().numero) EseguiPassi(*connessione, base.nome, passi, daPasso);
  connessione->Conferma();
}

/// A folder in `copie` that doesn't exist yet, named after the step.
fs::path CartellaPerPasso(const fs::path& copie, int passo) {
  const std::string nome = "prima-del-passo-" + std::to_string(passo);
  fs::path cartella = copie / nome;
  for (int n = 2; fs::exists(cartella); ++n) cartella = copie / (nome + "-" + std::to_string(n));
  return cartella;
}

void CopiaPrima(const PercorsiArchivi& percorsi, const fs::path& copie, int passo) {
  const fs::path cartella = CartellaPerPasso(copie, passo);
  std::error_code errore;
  fs::create_directories(cartella, errore);
  if (errore) {
    throw ErroreArchivio(Causa::SolaLettura,
                         "impossibile creare la cartella " + Nome(cartella) +
                             " per la copia prima dell'aggiornamento: " + errore.message());
  }
  for (const fs::path& file : {percorsi.tessarc, percorsi.scadenzario}) {
    const auto copia = CopiaArchivio(file, cartella / file.filename());
    if (copia) continue;
    throw ErroreArchivio(Causa::Altro,
                         "la copia prima dell'aggiornamento non è riuscita, e gli "
                         "archivi restano come sono: " +
                             copia.Errore().messaggio);
  }
}

}  // namespace

Esito<PassiCompleti> LeggiPassiCompleti(const engine::Motore& motore,
                                        const fs::path& cartellaSchema) {
  auto tessarc = LeggiPassi(motore.CartellaPassi(cartellaSchema, kTessarc));
  if (!tessarc) return tessarc.Errore();
  auto scadenzario = LeggiPassi(motore.CartellaPassi(cartellaSchema, kScadenzario));
  if (!scadenzario) return scadenzario.Errore();
  return PassiCompleti{std::move(tessarc).Valore(), std::move(scadenzario).Valore()};
}

const engine::Motore& MotoreDi(const PercorsiArchivi& /*percorsi*/) {
  return engine::sqlite::MotoreSqlite();
}

void CreaArchivio(const engine::Motore& motore, const engine::Base& base,
                  const std::vector<PassoSchema>& passi, const engine::Opzioni& opzioni) {
  EseguiMancanti(motore, base, passi, opzioni, true);
}

bool DaAggiornare(const NucleoBasi& nucleo, const PassiCompleti& passi) {
  const std::vector<engine::Base> basi = BasiDi(nucleo.Percorsi());
  const int ultimoTessarc = passi.tessarc.back().numero;
  const int ultimoScadenzario = passi.scadenzario.back().numero;
  const int tessarc = PassoDi(nucleo.Connessione(), basi[0], ultimoTessarc);
  const int scadenzario = PassoDi(nucleo.Connessione(), basi[1], ultimoScadenzario);
  return tessarc < ultimoTessarc || scadenzario < ultimoScadenzario;
}

void AggiornaSchema(const engine::Motore& motore, const PercorsiArchivi& percorsi,
                    const PassiCompleti& passi, const OpzioniApertura& opzioni) {
  const fs::path copie = opzioni.cartellaCopie.empty()
                             ? fs::absolute(percorsi.tessarc).parent_path() / "Copie"
                             : opzioni.cartellaCopie;
  CopiaPrima(percorsi, copie,
             std::max(passi.tessarc.back().numero, passi.scadenzario.back().numero));
  const std::vector<engine::Base> basi = BasiDi(percorsi);
  const engine::Opzioni comune{opzioni.attesa, opzioni.vfs};
  EseguiMancanti(motore, basi[0], passi.tessarc, comune, false);
  EseguiMancanti(motore, basi[1], passi.scadenzario, comune, false);
}

}  // namespace fenalto

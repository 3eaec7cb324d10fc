#include "core/store/Apertura.h"

#include <sqlite3.h>
#include <unistd.h>

#include <memory>

#include "core/store/NucleoBasi.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;
using Causa = ErroreArchivio::Causa;
using ConnessioneAperta = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

std::string Nome(const fs::path& file) {
  return "«" + file.string() + "»";
}

void VerificaIdentita(sqlite3* connessione, const std::string& schema, const fs::path& file) {
  const auto id = InteroMotore(connessione, "PRAGMA " + schema + ".application_id", file);
  if (id == kIdApplicazione) return;
  throw ErroreArchivio(Causa::Danneggiato,
                       Nome(file) +
                           " non è un archivio di questo programma: indicare la cartella giusta o "
                           "ripristinare una copia dalla cartella Copie");
}

/// The step the database is at; throws when the program doesn't know it.
int PassoDi(sqlite3* connessione, const std::string& schema, const fs::path& file, int ultimo) {
  VerificaIdentita(connessione, schema, file);
  if (sqlite3_db_readonly(connessione, schema.c_str()) == 1) {
    throw ErroreArchivio(
        Causa::SolaLettura,
        "l'archivio " + Nome(file) + " è in sola lettura: dare il permesso di scrittura al file");
  }
  const auto passo =
      static_cast<int>(InteroMotore(connessione, "PRAGMA " + schema + ".user_version", file));
  if (passo > ultimo) {
    throw ErroreArchivio(
        Causa::TroppoNuovo,
        "l'archivio " + Nome(file) +
            " è stato aggiornato da una versione più recente del programma (passo " +
            std::to_string(passo) + ", qui si arriva al " + std::to_string(ultimo) +
            "): installare la versione nuova anche su questa stazione");
  }
  return passo;
}

/// Runs the steps that are missing, in one transaction.
void EseguiMancanti(sqlite3* connessione, const std::vector<PassoSchema>& passi,
                    const fs::path& file, bool nuovo) {
  EseguiMotore(connessione,
               "PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL; BEGIN IMMEDIATE", file);
  // Read inside the transaction: another station may have done it while this one waited.
  const int daPasso = nuovo ? 0 : PassoDi(connessione, kSchemaTessarc, file, passi.back().numero);
  if (daPasso < passi.back().numero) EseguiPassi(connessione, passi, daPasso, file);
  EseguiMotore(connessione, "COMMIT", file);
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

Esito<PassiCompleti> LeggiPassiCompleti(const fs::path& cartellaSchema) {
  auto tessarc = LeggiPassi(cartellaSchema / "tessarc");
  if (!tessarc) return tessarc.Errore();
  auto scadenzario = LeggiPassi(cartellaSchema / "scadenzario");
  if (!scadenzario) return scadenzario.Errore();
  return PassiCompleti{std::move(tessarc).Valore(), std::move(scadenzario).Valore()};
}

Esito<bool> VerificaFile(const fs::path& file) {
  std::error_code errore;
  const std::string ripristino = ": ripristinare una copia dalla cartella Copie";
  if (!fs::exists(file, errore)) {
    return Errore{"manca l'archivio " + Nome(file) + ripristino};
  }
  if (!fs::is_regular_file(file, errore)) {
    return Errore{Nome(file) +
                  " non è un file: togliere ciò che ha quel nome e ripristinare una "
                  "copia dalla cartella Copie"};
  }
  if (fs::file_size(file, errore) == 0) {
    return Errore{"l'archivio " + Nome(file) + " è vuoto" + ripristino};
  }
  if (access(file.c_str(), R_OK | W_OK) != 0) {
    return Errore{
        "l'archivio " + Nome(file) +
        " non si può leggere e scrivere: dare il permesso di lettura e scrittura al file"};
  }
  const fs::path cartella = fs::absolute(file).parent_path();
  if (access(cartella.c_str(), W_OK | X_OK) != 0) {
    return Errore{"nella cartella " + Nome(cartella) + " dell'archivio " + Nome(file.filename()) +
                  " non si può scrivere: dare il permesso di scrittura alla cartella"};
  }
  return true;
}

void CreaArchivio(const fs::path& file, const std::vector<PassoSchema>& passi,
                  const std::string& vfs) {
  const ConnessioneAperta connessione(ApriConnessione(file, vfs, true), sqlite3_close);
  EseguiMancanti(connessione.get(), passi, file, true);
}

bool DaAggiornare(const NucleoBasi& nucleo, const PassiCompleti& passi) {
  sqlite3* connessione = nucleo.Connessione();
  const int ultimoTessarc = passi.tessarc.back().numero;
  const int ultimoScadenzario = passi.scadenzario.back().numero;
  const int tessarc =
      PassoDi(connessione, kSchemaTessarc, nucleo.Percorsi().tessarc, ultimoTessarc);
  const int scadenzario =
      PassoDi(connessione, kSchemaScadenzario, nucleo.Percorsi().scadenzario, ultimoScadenzario);
  return tessarc < ultimoTessarc || scadenzario < ultimoScadenzario;
}

void AggiornaSchema(const PercorsiArchivi& percorsi, const PassiCompleti& passi,
                    const OpzioniApertura& opzioni) {
  const fs::path copie = opzioni.cartellaCopie.empty()
                             ? fs::absolute(percorsi.tessarc).parent_path() / "Copie"
                             : opzioni.cartellaCopie;
  CopiaPrima(percorsi, copie,
             std::max(passi.tessarc.back().numero, passi.scadenzario.back().numero));
  AttesaArchivio attesa(opzioni.attesa);
  const auto aggiorna = [&](const fs::path& file, const std::vector<PassoSchema>& elenco) {
    const ConnessioneAperta connessione(ApriConnessione(file, opzioni.vfs, false), sqlite3_close);
    attesa.Installa(connessione.get());
    EseguiMancanti(connessione.get(), elenco, file, false);
  };
  aggiorna(percorsi.tessarc, passi.tessarc);
  aggiorna(percorsi.scadenzario, passi.scadenzario);
}

}  // namespace fenalto

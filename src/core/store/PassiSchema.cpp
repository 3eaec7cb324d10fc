#include "core/store/PassiSchema.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

#include "core/store/ErroreArchivio.h"
#include "core/store/ErroriMotore.h"

namespace fenalto {
namespace {

namespace fs = std::filesystem;

void Esegui(sqlite3* connessione, const std::string& sql, const fs::path& file,
            const std::string& passo) {
  const int rc = sqlite3_exec(connessione, sql.c_str(), nullptr, nullptr, nullptr);
  if (rc == SQLITE_OK) return;
  const ErroreArchivio errore = ErroreMotore(connessione, rc, file);
  throw ErroreArchivio(errore.PerQuale(),
                       std::string("passo ") + passo + " dello schema: " + errore.what());
}

}  // namespace

Esito<std::vector<PassoSchema>> LeggiPassi(const fs::path& cartella) {
  std::vector<PassoSchema> passi;
  std::error_code errore;
  for (const auto& voce : fs::directory_iterator(cartella, errore)) {
    if (voce.path().extension() != ".sql") continue;
    const std::string nome = voce.path().filename().string();
    PassoSchema passo{0, voce.path()};
    std::from_chars(nome.data(), nome.data() + nome.size(), passo.numero);
    passi.push_back(std::move(passo));
  }
  if (passi.empty()) {
    return Errore{"mancano i passi dello schema in «" + cartella.string() +
                  "»: reinstallare il programma"};
  }
  std::ranges::sort(passi, {}, &PassoSchema::numero);
  for (std::size_t i = 0; i < passi.size(); ++i) {
    if (passi[i].numero != static_cast<int>(i) + 1) {
      return Errore{"i passi dello schema in «" + cartella.string() +
                    "» non sono numerati di seguito: reinstallare il programma"};
    }
  }
  return passi;
}

void EseguiPassi(sqlite3* connessione, const std::vector<PassoSchema>& passi, int daPasso,
                 const fs::path& file) {
  for (const PassoSchema& passo : passi) {
    if (passo.numero <= daPasso) continue;
    std::ifstream flusso(passo.file, std::ios::binary);
    const std::string sql{std::istreambuf_iterator<char>(flusso), {}};
    if (!flusso) {
      throw ErroreArchivio(
          ErroreArchivio::Causa::Mancante,
          "impossibile leggere «" + passo.file.string() + "»: reinstallare il programma");
    }
    Esegui(connessione, sql, file, passo.file.stem().string());
  }
  const std::string ultimo = std::to_string(passi.back().numero);
  Esegui(connessione,
         "PRAGMA user_version = " + ultimo +
             "; PRAGMA application_id = " + std::to_string(kIdApplicazione),
         file, ultimo);
}

}  // namespace fenalto

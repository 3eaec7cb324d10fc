#include "core/store/DiscoFinto.h"

#include <sqlite3.h>
#include <unistd.h>

#include <csignal>

namespace fenalto::prova {
namespace {

std::int64_t spazio = -1;
int mancano = 0;
sqlite3_vfs livello;
/// Databases lock, journals don't: the system's layer has other methods for each.
struct Metodi {
  const sqlite3_io_methods* veri = nullptr;
  sqlite3_io_methods finti{};
};
Metodi metodi[2];

int Scrivi(sqlite3_file* file, const void* dati, int quanti, sqlite3_int64 dove) {
  if (mancano > 0 && --mancano == 0) kill(getpid(), SIGKILL);
  if (spazio >= 0) {
    if (quanti > spazio) return SQLITE_FULL;
    spazio -= quanti;
  }
  for (const Metodi& m : metodi)
    if (file->pMethods == &m.finti) return m.veri->xWrite(file, dati, quanti, dove);
  return SQLITE_IOERR_WRITE;
}

int Apri(sqlite3_vfs* /*io*/, const char* nome, sqlite3_file* file, int modo, int* avuto) {
  sqlite3_vfs* vero = sqlite3_vfs_find("unix");
  const int rc = vero->xOpen(vero, nome, file, modo, avuto);
  if (rc != SQLITE_OK || file->pMethods == nullptr) return rc;
  Metodi& m = metodi[(modo & SQLITE_OPEN_MAIN_DB) != 0 ? 0 : 1];
  m.veri = file->pMethods;
  m.finti = *m.veri;
  m.finti.xWrite = Scrivi;
  file->pMethods = &m.finti;
  return rc;
}

}  // namespace

const char* DiscoFinto::Nome() {
  static constexpr const char* kNome = "disco-finto";
  if (sqlite3_vfs_find(kNome) == nullptr) {
    livello = *sqlite3_vfs_find("unix");
    livello.pNext = nullptr;
    livello.zName = kNome;
    livello.xOpen = Apri;
    sqlite3_vfs_register(&livello, 0);
  }
  return kNome;
}

void DiscoFinto::MuoriAllaScrittura(int n) {
  mancano = n;
}

void DiscoFinto::Spazio(std::int64_t byte) {
  spazio = byte;
}

}  // namespace fenalto::prova

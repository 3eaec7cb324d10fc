#include "faults/FileDiProva.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <new>
#include <vector>

namespace fenalto::prova {
namespace {

constexpr std::size_t kSettore = 512;  // bytes that a disk writes at once

/// A write, or a truncation when `taglio`, that isn't synchronised yet.
struct Modifica {
  bool taglio;
  std::size_t dove;  ///< offset of a write, new length of a truncation
  std::string dati;
};

struct Aperto;

/// Content of a file, whatever its name.
struct Nodo {
  std::string attuale;   ///< as programs see it
  std::string durevole;  ///< as it is certainly on the disk
  std::vector<Modifica> sospese;
  std::vector<Aperto*> aperti;
};
using Nodi = std::shared_ptr<Nodo>;

/// What a name stands for; nothing when there is no such file.
struct Voce {
  Nodi attuale;
  Nodi durevole;
  std::vector<Nodi> sospese;  ///< later meanings, whose order the disk keeps
};

struct Disco {
  std::map<std::string, Voce> voci;
  Bugia bugia = Bugia::Nessuna;
  std::int64_t cambiamenti = 0;
  std::int64_t taglio = 0;
  bool spento = false;
  std::int64_t accensione = 0;
};
Disco disco;

/// A file that somebody has open.
struct Aperto {
  Nodi nodo;
  std::string nome;
  bool giornale = false;
  bool nuovo = false;  ///< its name must be synchronised with it
  int blocco = SQLITE_LOCK_NONE;
  std::int64_t accensione = 0;
};
struct Maniglia {
  sqlite3_file base;
  Aperto* aperto;
};

Aperto& Di(sqlite3_file* file) {
  return *reinterpret_cast<Maniglia*>(file)->aperto;
}

bool Morto(const Aperto& a) {
  return disco.spento || a.accensione != disco.accensione;
}

/// Counts a change of the disk; false when the power goes while it is under way.
bool Cambia() {
  ++disco.cambiamenti;
  if (disco.taglio == 0 || --disco.taglio > 0) return true;
  disco.spento = true;
  return false;
}

void Applica(std::string& contenuto, const Modifica& m) {
  if (m.taglio) {
    contenuto.resize(m.dove);
    return;
  }
  if (contenuto.size() < m.dove + m.dati.size()) contenuto.resize(m.dove + m.dati.size());
  std::memcpy(contenuto.data() + m.dove, m.dati.data(), m.dati.size());
}

void SincronizzaCartella(const std::filesystem::path& cartella) {
  for (auto i = disco.voci.begin(); i != disco.voci.end();) {
    Voce& voce = i->second;
    if (std::filesystem::path(i->first).parent_path() == cartella) {
      voce.durevole = voce.attuale;
      voce.sospese.clear();
    }
    const bool vuota = !voce.attuale && !voce.durevole && voce.sospese.empty();
    i = vuota ? disco.voci.erase(i) : std::next(i);
  }
}

// --- What survives -------------------------------------------------------------------------------

/// How the disk treated what was not synchronised in one file.
enum class Sorte { TuttoPerso, TuttoTenuto, FinoAUnPunto, Sparso };

class Superstite {
 public:
  explicit Superstite(std::mt19937& caso)
      : caso_(caso), sorte_(static_cast<Sorte>(caso() % 4)), sporca_(caso() % 2 == 0) {}

  std::string Di(const Nodo& nodo) {
    std::string contenuto = nodo.durevole;
    const std::size_t quante = nodo.sospese.size();
    const std::size_t punto = quante == 0 ? 0 : caso_() % (quante + 1);
    for (std::size_t i = 0; i < quante; ++i) {
      const Modifica& m = nodo.sospese[i];
      switch (sorte_) {
        case Sorte::TuttoPerso:
          break;
        case Sorte::TuttoTenuto:
          Applica(contenuto, m);
          break;
        case Sorte::FinoAUnPunto:
          if (i < punto) Applica(contenuto, m);
          if (i == punto) InParte(contenuto, m);
          break;
        case Sorte::Sparso:
          switch (caso_() % 3) {
            case 0:
              break;
            case 1:
              Applica(contenuto, m);
              break;
            default:
              InParte(contenuto, m);
          }
      }
    }
    return contenuto;
  }

 private:
  /// Some sectors of a write, one of them cut anywhere; or its length without its bytes.
  void InParte(std::string& contenuto, const Modifica& m) {
    if (m.taglio) {
      if (caso_() % 2 == 0) Applica(contenuto, m);
      return;
    }
    const std::size_t fine = m.dove + m.dati.size();
    if (caso_() % 4 == 0) Allunga(contenuto, fine);
    for (std::size_t da = m.dove; da < fine;) {
      const std::size_t a = std::min(fine, (da / kSettore + 1) * kSettore);
      std::size_t quanti = a - da;
      switch (caso_() % 5) {
        case 0:
        case 1:
          quanti = 0;
          break;
        case 2:
          quanti = caso_() % (quanti + 1);
          break;
        default:
          break;
      }
      if (quanti > 0) {
        Allunga(contenuto, da);
        Applica(contenuto, {false, da, m.dati.substr(da - m.dove, quanti)});
      }
      da = a;
    }
  }

  /// Lengthens a file with what a disk may hold there: zeros or what was there before.
  void Allunga(std::string& contenuto, std::size_t lunghezza) {
    while (contenuto.size() < lunghezza) {
      contenuto += sporca_ ? static_cast<char>(caso_() & 0xFFU) : '\0';
    }
  }

  std::mt19937& caso_;
  Sorte sorte_;
  bool sporca_;
};

// --- Files ---------------------------------------------------------------------------------------

int Chiudi(sqlite3_file* file) {
  Aperto* a = &Di(file);
  std::erase(a->nodo->aperti, a);
  delete a;
  return SQLITE_OK;
}

int LeggiDalFile(sqlite3_file* file, void* dati, int quanti, sqlite3_int64 dove) {
  const Aperto& a = Di(file);
  if (Morto(a)) return SQLITE_IOERR_READ;
  const std::string& contenuto = a.nodo->attuale;
  const auto da = static_cast<std::size_t>(dove);
  const auto n = static_cast<std::size_t>(quanti);
  const std::size_t ci = da < contenuto.size() ? std::min(n, contenuto.size() - da) : 0;
  if (ci > 0) std::memcpy(dati, contenuto.data() + da, ci);
  if (ci == n) return SQLITE_OK;
  std::memset(static_cast<char*>(dati) + ci, 0, n - ci);
  return SQLITE_IOERR_SHORT_READ;
}

int Esegui(Aperto& a, Modifica m, int errore) {
  if (Morto(a)) return errore;
  if (a.nome.empty()) {  // a temporary file has nothing to survive
    Applica(a.nodo->attuale, m);
    return SQLITE_OK;
  }
  Applica(a.nodo->attuale, m);
  a.nodo->sospese.push_back(std::move(m));
  return Cambia() ? SQLITE_OK : errore;
}

int ScriviNelFile(sqlite3_file* file, const void* dati, int quanti, sqlite3_int64 dove) {
  return Esegui(Di(file),
                {false, static_cast<std::size_t>(dove),
                 std::string(static_cast<const char*>(dati), static_cast<std::size_t>(quanti))},
                SQLITE_IOERR_WRITE);
}

int Tronca(sqlite3_file* file, sqlite3_int64 lunghezza) {
  return Esegui(Di(file), {true, static_cast<std::size_t>(lunghezza), {}}, SQLITE_IOERR_TRUNCATE);
}

int Sincronizza(sqlite3_file* file, int /*modo*/) {
  Aperto& a = Di(file);
  if (Morto(a)) return SQLITE_IOERR_FSYNC;
  if (a.nome.empty()) return SQLITE_OK;
  if (!Cambia()) return SQLITE_IOERR_FSYNC;
  if (disco.bugia == Bugia::Tutto || (disco.bugia == Bugia::Giornali && a.giornale)) {
    return SQLITE_OK;
  }
  for (const Modifica& m : a.nodo->sospese) Applica(a.nodo->durevole, m);
  a.nodo->sospese.clear();
  // As the system's layer does: a journal just made is synchronised with its folder.
  if (a.nuovo) SincronizzaCartella(std::filesystem::path(a.nome).parent_path());
  a.nuovo = false;
  return SQLITE_OK;
}

int Lunghezza(sqlite3_file* file, sqlite3_int64* lunghezza) {
  const Aperto& a = Di(file);
  if (Morto(a)) return SQLITE_IOERR_FSTAT;
  *lunghezza = static_cast<sqlite3_int64>(a.nodo->attuale.size());
  return SQLITE_OK;
}

int BloccoAltrui(const Aperto& a) {
  int massimo = SQLITE_LOCK_NONE;
  for (const Aperto* altro : a.nodo->aperti) {
    if (altro != &a) massimo = std::max(massimo, altro->blocco);
  }
  return massimo;
}

int Blocca(sqlite3_file* file, int blocco) {
  Aperto& a = Di(file);
  if (Morto(a)) return SQLITE_IOERR_LOCK;
  if (blocco <= a.blocco) return SQLITE_OK;
  const int altrui = BloccoAltrui(a);
  if (blocco == SQLITE_LOCK_SHARED && altrui >= SQLITE_LOCK_PENDING) return SQLITE_BUSY;
  if (blocco >= SQLITE_LOCK_RESERVED && altrui >= SQLITE_LOCK_RESERVED) return SQLITE_BUSY;
  if (blocco == SQLITE_LOCK_EXCLUSIVE && altrui >= SQLITE_LOCK_SHARED) {
    a.blocco = SQLITE_LOCK_PENDING;
    return SQLITE_BUSY;
  }
  a.blocco = blocco;
  return SQLITE_OK;
}

int Sblocca(sqlite3_file* file, int blocco) {
  Di(file).blocco = std::min(Di(file).blocco, blocco);
  return SQLITE_OK;
}

int Riservato(sqlite3_file* file, int* riservato) {
  const Aperto& a = Di(file);
  *riservato = a.blocco >= SQLITE_LOCK_RESERVED || BloccoAltrui(a) >= SQLITE_LOCK_RESERVED ? 1 : 0;
  return SQLITE_OK;
}

int Comando(sqlite3_file* /*file*/, int /*comando*/, void* /*dati*/) {
  return SQLITE_NOTFOUND;
}

// Both as the system's layer has them.
int Settore(sqlite3_file* /*file*/) {
  return 4096;
}
int Qualita(sqlite3_file* /*file*/) {
  return SQLITE_IOCAP_POWERSAFE_OVERWRITE;
}

const sqlite3_io_methods kMetodi = {
    .iVersion = 1,
    .xClose = Chiudi,
    .xRead = LeggiDalFile,
    .xWrite = ScriviNelFile,
    .xTruncate = Tronca,
    .xSync = Sincronizza,
    .xFileSize = Lunghezza,
    .xLock = Blocca,
    .xUnlock = Sblocca,
    .xCheckReservedLock = Riservato,
    .xFileControl = Comando,
    .xSectorSize = Settore,
    .xDeviceCharacteristics = Qualita,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

// --- Names ---------------------------------------------------------------------------------------

int Apri(sqlite3_vfs* /*io*/, const char* nome, sqlite3_file* file, int modo, int* avuto) {
  file->pMethods = nullptr;
  if (disco.spento) return SQLITE_CANTOPEN;
  auto a = std::make_unique<Aperto>();
  a->accensione = disco.accensione;
  if (nome == nullptr) {
    a->nodo = std::make_shared<Nodo>();
  } else {
    a->nome = nome;
    a->giornale = (modo & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_SUPER_JOURNAL)) != 0;
    const auto trovata = disco.voci.find(nome);
    if (trovata != disco.voci.end() && trovata->second.attuale) {
      a->nodo = trovata->second.attuale;
    } else if ((modo & SQLITE_OPEN_CREATE) == 0) {
      return SQLITE_CANTOPEN;
    } else {
      Voce& voce = disco.voci[nome];
      voce.attuale = a->nodo = std::make_shared<Nodo>();
      voce.sospese.push_back(voce.attuale);
      if (!Cambia()) return SQLITE_CANTOPEN;
    }
    a->nuovo = a->giornale && (modo & SQLITE_OPEN_CREATE) != 0;
  }
  a->nodo->aperti.push_back(a.get());
  if (avuto != nullptr) *avuto = modo;
  reinterpret_cast<Maniglia*>(file)->aperto = a.release();
  file->pMethods = &kMetodi;
  return SQLITE_OK;
}

int Elimina(sqlite3_vfs* /*io*/, const char* nome, int sincrona) {
  if (disco.spento) return SQLITE_IOERR_DELETE;
  const auto trovata = disco.voci.find(nome);
  if (trovata == disco.voci.end() || !trovata->second.attuale) return SQLITE_IOERR_DELETE_NOENT;
  trovata->second.attuale.reset();
  trovata->second.sospese.emplace_back();
  if (!Cambia()) return SQLITE_IOERR_DELETE;
  if (sincrona == 0) return SQLITE_OK;
  // Deletion and its synchronisation are two moments, and the power may go between them.
  if (!Cambia()) return SQLITE_IOERR_DIR_FSYNC;
  if (disco.bugia == Bugia::Nessuna) {
    SincronizzaCartella(std::filesystem::path(nome).parent_path());
  }
  return SQLITE_OK;
}

int Esiste(sqlite3_vfs* /*io*/, const char* nome, int modo, int* esiste) {
  if (disco.spento) return SQLITE_IOERR_ACCESS;
  const auto trovata = disco.voci.find(nome);
  const Nodo* nodo = trovata == disco.voci.end() ? nullptr : trovata->second.attuale.get();
  // As the system's layer does: asked whether it exists, an empty file doesn't.
  *esiste = nodo != nullptr && (modo != SQLITE_ACCESS_EXISTS || !nodo->attuale.empty()) ? 1 : 0;
  return SQLITE_OK;
}

}  // namespace

const char* FileDiProva::Nome() {
  static constexpr const char* kNome = "file-di-prova";
  static sqlite3_vfs livello;
  if (livello.zName == nullptr) {
    // Clock, randomness and full names come from the system's layer.
    livello = *sqlite3_vfs_find("unix");
    livello.pNext = nullptr;
    livello.zName = kNome;
    livello.szOsFile = sizeof(Maniglia);
    livello.xOpen = Apri;
    livello.xDelete = Elimina;
    livello.xAccess = Esiste;
    sqlite3_vfs_register(&livello, 0);
  }
  return kNome;
}

void FileDiProva::Azzera() {
  const std::int64_t accensione = disco.accensione + 1;
  disco = Disco{};
  disco.accensione = accensione;
}

void FileDiProva::Metti(const std::filesystem::path& file, std::string contenuto) {
  auto nodo = std::make_shared<Nodo>();
  nodo->attuale = contenuto;
  nodo->durevole = std::move(contenuto);
  disco.voci[file.string()] = Voce{nodo, nodo, {}};
}

void FileDiProva::Menti(Bugia bugia) {
  disco.bugia = bugia;
}

void FileDiProva::TagliaAlla(std::int64_t n) {
  disco.taglio = n;
}

bool FileDiProva::Spento() {
  return disco.spento;
}

std::int64_t FileDiProva::Cambiamenti() {
  return disco.cambiamenti;
}

void FileDiProva::Riaccendi(std::mt19937& caso) {
  std::map<std::string, Voce> rimaste;
  for (const auto& [nome, voce] : disco.voci) {
    Nodi nodo = voce.durevole;
    const std::size_t passi = caso() % (voce.sospese.size() + 1);
    if (passi > 0) nodo = voce.sospese[passi - 1];
    if (!nodo) continue;
    auto nuovo = std::make_shared<Nodo>();
    nuovo->durevole = Superstite(caso).Di(*nodo);
    nuovo->attuale = nuovo->durevole;
    rimaste[nome] = Voce{nuovo, nuovo, {}};
  }
  disco.voci = std::move(rimaste);
  disco.spento = false;
  disco.taglio = 0;
  ++disco.accensione;
}

}  // namespace fenalto::prova

// The two databases of a company on one connection, so that one transaction covers both.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/store/Archivio.h"
#include "core/store/Blocchi.h"
#include "core/store/CopiaSicurezza.h"

namespace fenalto {

struct OpzioniApertura {
  /// Folder `schema` of the program's data: numbered steps and stored queries.
  std::filesystem::path cartellaSchema;
  std::string stazione;
  std::string utente;
  /// Folder for the copies made before a schema step (default: `Copie` beside tessarc).
  std::filesystem::path cartellaCopie;
  /// How long a statement waits for another station's commit.
  std::chrono::milliseconds attesa{10'000};
  /// File layer of the engine, for tests; empty for the system's.
  std::string vfs;
};

/// A failure injected by tests.
enum class Guasto { Nessuno, Errore, Memoria };

class BasiDati {
 public:
  /// Makes both databases, empty, at the newest schema step. Fails when a file exists.
  static Esito<bool> Crea(const PercorsiArchivi& percorsi, const OpzioniApertura& opzioni);
  /// Opens both, checks that they are this program's databases and whole, and brings an older
  /// schema up to date (after a copy, in one transaction). The error says which file and what to
  /// do.
  static Esito<std::unique_ptr<BasiDati>> Apri(const PercorsiArchivi& percorsi,
                                               const OpzioniApertura& opzioni);
  ~BasiDati();
  BasiDati(const BasiDati&) = delete;
  BasiDati& operator=(const BasiDati&) = delete;

  [[nodiscard]] Archivio& Tessarc();
  [[nodiscard]] Archivio& Scadenzario();
  /// By key, without case; throws ErroreArchivio on another key.
  [[nodiscard]] Archivio& PerChiave(std::string_view chiave);
  [[nodiscard]] fenalto::Blocchi& Blocchi();
  [[nodiscard]] const PercorsiArchivi& Percorsi() const;
  [[nodiscard]] bool InTransazione() const;

  /// To be called when the program is at rest: results of which nothing was read for `ferme` are
  /// read to their end, so that a window left half way doesn't keep other stations from writing.
  void RilasciaLetture(std::chrono::milliseconds ferme = std::chrono::seconds(1));

  /// Test seam: the `n`-th statement from now (1 the next) fails with `guasto` instead of running,
  /// BEGIN and COMMIT included; 0 takes the seam off.
  void ImpostaGuasto(int n, Guasto guasto);
  /// Statements run since the seam was set.
  [[nodiscard]] int IstruzioniEseguite() const;

 private:
  friend class Archivio;
  friend class Transazione;
  struct Interno;
  explicit BasiDati(std::unique_ptr<Interno> interno);
  std::unique_ptr<Interno> interno_;
};

/// One transaction over both databases. Rolled back on destruction unless Conferma() succeeded.
/// Not nested: opening a second one throws std::logic_error.
class Transazione {
 public:
  /// What it is going to write. Tessarc alone needs three syncs fewer than both databases.
  enum class Ambito { Tutto, Tessarc };
  explicit Transazione(BasiDati& basi, Ambito ambito = Ambito::Tutto);
  ~Transazione();
  Transazione(const Transazione&) = delete;
  Transazione& operator=(const Transazione&) = delete;
  /// Commits; throws ErroreArchivio when the engine can't, and then everything is rolled back.
  void Conferma();

 private:
  BasiDati& basi_;
  bool aperta_ = true;
};

}  // namespace fenalto

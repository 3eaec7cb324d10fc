// An engine that can hold a company's databases.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/sql/Dialetto.h"
#include "core/store/Blocchi.h"
#include "core/store/engine/Connessione.h"
#include "core/values/Esito.h"

namespace fenalto::engine {

struct Opzioni {
  /// How long a statement waits for another station's commit.
  std::chrono::milliseconds attesa{10'000};
  /// File layer of an engine that has one, for tests; empty for the system's.
  std::string vfs;
};

class Motore {
 public:
  Motore() = default;
  virtual ~Motore() = default;
  Motore(const Motore&) = delete;
  Motore& operator=(const Motore&) = delete;

  [[nodiscard]] virtual const sql::Dialetto& Dialetto() const = 0;
  /// Where in the program's data the steps of a base's schema are, in the engine's own text.
  [[nodiscard]] virtual std::filesystem::path CartellaPassi(
      const std::filesystem::path& cartellaSchema, const std::string& base) const = 0;

  /// Whether the databases can be used and stations be kept apart there, as far as can be told
  /// without opening them; else what is wrong with which, and what to do.
  [[nodiscard]] virtual Esito<bool> Verifica(const std::vector<Base>& basi) const = 0;
  [[nodiscard]] virtual bool Esiste(const Base& base) const = 0;
  /// Opens databases as one connection, made empty when `crea`. Throws ErroreArchivio.
  [[nodiscard]] virtual std::unique_ptr<Connessione> Apri(const std::vector<Base>& basi,
                                                          const Opzioni& opzioni,
                                                          bool crea) const = 0;
  /// Takes away what a creation that failed has left.
  virtual void Rimuovi(const Base& base) const noexcept = 0;
  /// The locks of the stations that work on a base. Throws ErroreArchivio.
  [[nodiscard]] virtual std::unique_ptr<Blocchi> ApriBlocchi(const Base& base,
                                                             const std::string& stazione,
                                                             const std::string& utente) const = 0;

  /// Copies databases as they all stand at one instant, each to a file that isn't there yet.
  /// Stations go on reading, and wait to write. Throws std::runtime_error.
  virtual void Copia(const std::vector<Base>& basi,
                     const std::vector<std::filesystem::path>& copie) const = 0;
  /// Looks at every page of a copy; `propria`: also whether it is of this program. Throws
  /// std::runtime_error.
  virtual void ControllaCopia(const std::filesystem::path& copia, bool propria) const = 0;

  // --- Databases made anew, to take the place of those that are there ---
  //
  // First they are made beside the others (Prepara, Compatta), where they can be opened and looked
  // at; then, when nobody has the company open, Cambia puts all of them in place or none, wherever
  // the process is killed. Where they are made stands in the order of the bases.

  /// Copies that ControllaCopia has found whole. Throws std::exception.
  virtual std::vector<std::filesystem::path> Prepara(
      const std::vector<std::filesystem::path>& copie, const std::vector<Base>& basi) const = 0;
  /// The databases themselves without the room that they waste: whole before, whole after, with as
  /// many rows in each table. Throws std::exception.
  virtual std::vector<std::filesystem::path> Compatta(const std::vector<Base>& basi) const = 0;
  /// Throws std::exception, and then the databases are as they were. What they replace stays aside.
  virtual void Cambia(const std::vector<Base>& basi) const = 0;
  /// Finishes a change in whose middle a process was killed; asked before a company is opened.
  /// Throws std::exception.
  virtual void FinisciCambio(const std::vector<Base>& basi) const = 0;
  /// Puts what was replaced back. Throws std::exception.
  virtual void TornaIndietro(const std::vector<Base>& basi) const = 0;
  /// Takes away what was made and not put in place.
  virtual void Scarta(const std::vector<Base>& basi) const noexcept = 0;
  /// Takes away what was replaced.
  virtual void TogliPrima(const std::vector<Base>& basi) const noexcept = 0;
};

}  // namespace fenalto::engine

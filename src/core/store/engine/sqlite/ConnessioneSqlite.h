// The embedded engine's connection: the first database is the connection's own, the others are
// attached to it.
//
// All use a rollback journal in TRUNCATE mode with synchronous=FULL, which is atomic over all files
// and survives a power cut. Nothing in the process
// opens or closes a database file but the engine: a second descriptor would drop its locks.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "core/store/engine/Motore.h"

struct sqlite3;

namespace fenalto::engine::sqlite {

/// Tells this program's databases from any other (PRAGMA application_id).
inline constexpr int kIdApplicazione = 0x46656E61;

/// Opens a connection to `file`, which must exist unless `crea`; throws ErroreArchivio.
sqlite3* ApriConnessione(const std::filesystem::path& file, const std::string& vfs, bool crea);
/// First column of the first row of a statement, empty without one; throws ErroreArchivio.
std::string TestoMotore(sqlite3* connessione, const std::string& sql,
                        const std::filesystem::path& file);
/// Runs statements; throws ErroreArchivio.
void EseguiMotore(sqlite3* connessione, const std::string& sql, const std::filesystem::path& file);

/// The file in which the engine keeps what a transaction replaces.
std::filesystem::path Giornale(const std::filesystem::path& archivio);

/// Waits for another station's locks: short sleeps of uneven length, `limite` in all.
class AttesaArchivio {
 public:
  explicit AttesaArchivio(std::chrono::milliseconds limite) : limite_(limite) {}
  /// Makes the connection wait so; the object must outlive it.
  void Installa(sqlite3* connessione);

 private:
  static int Aspetta(void* io, int volta);
  std::chrono::milliseconds limite_;
  std::chrono::steady_clock::time_point inizio_;
  std::uint32_t seme_ = 2'463'534'242U;
};

class ConnessioneSqlite final : public Connessione {
 public:
  /// See Motore::Apri.
  ConnessioneSqlite(const std::vector<Base>& basi, const Opzioni& opzioni, bool crea);
  ~ConnessioneSqlite() override;
  ConnessioneSqlite(const ConnessioneSqlite&) = delete;
  ConnessioneSqlite& operator=(const ConnessioneSqlite&) = delete;

  std::unique_ptr<Istruzione> Prepara(const std::string& base, std::string_view sql) override;
  std::vector<Tabella> Tabelle(const std::string& base) override;
  bool HaTabella(const std::string& base, std::string_view tabella) override;
  std::string NomeTabella(const std::string& base, std::string_view tabella) override;
  StatoBase Stato(const std::string& base) override;
  void EseguiPasso(const std::string& base, const std::string& testo) override;
  void SegnaPasso(const std::string& base, int passo) override;
  void Inizia(bool riserva) override;
  void Riserva(const std::string& base) override;
  void Conferma() override;
  void Annulla() noexcept override;
  void TogliResti() noexcept override;
  [[nodiscard]] bool InTransazione() const noexcept override;

 private:
  struct Aperta {
    Base base;
    std::string schema;   ///< the engine's name of it on this connection
    std::string riserva;  ///< takes its write lock and changes nothing; made when first needed
  };
  [[nodiscard]] Aperta& Trova(const std::string& base);
  /// Attaches `base` under its own name; returns the engine's result.
  int AttaccaFile(const Base& base);
  /// Runs a statement on the whole connection.
  void Esegui(const std::string& sql);

  AttesaArchivio attesa_;
  sqlite3* connessione_ = nullptr;
  std::vector<Aperta> aperte_;
};

/// Tables of a schema of the connection; throws ErroreArchivio, naming `file`.
std::vector<Tabella> LeggiTabelle(sqlite3* connessione, const std::string& schema,
                                  const std::filesystem::path& file);

}  // namespace fenalto::engine::sqlite

// The connection that a company's databases share, and what hangs on it: waiting, the test seam,
// the open cursors, the state of the transaction.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/store/BasiDati.h"
#include "core/store/CatalogoArchivio.h"
#include "core/store/Istruzioni.h"

struct sqlite3;
struct sqlite3_stmt;

namespace fenalto {

class NucleoBasi;

/// Schema names of the two databases on the connection.
inline constexpr const char* kSchemaTessarc = "main";
inline constexpr const char* kSchemaScadenzario = "scadenzario";

/// A result set that still reads from its statement.
class CursoreAperto {
 public:
  /// Reads the rest into memory and lets the statement go.
  virtual void Completa() = 0;
  /// Lets the statement go; what isn't read yet is lost.
  virtual void Interrompi() noexcept = 0;
  /// When it last took rows from its statement.
  [[nodiscard]] virtual std::chrono::steady_clock::time_point UltimaLettura() const = 0;
  /// Whether it reads a table of that engine name.
  [[nodiscard]] virtual bool Legge(std::string_view nomeMotore) const = 0;

 protected:
  ~CursoreAperto() = default;
};

/// One open database as the store knows it; outlives its Archivio while result sets hold it.
struct DatiArchivio {
  std::shared_ptr<NucleoBasi> nucleo;
  std::filesystem::path percorso;
  std::string nomeFile;  ///< of messages
  std::string schema;
  bool temporaneo = false;
  bool chiuso = false;
  CatalogoArchivio catalogo;
  CacheIstruzioni cache;

  explicit DatiArchivio(std::shared_ptr<const VisteArchivio> viste) : catalogo(std::move(viste)) {}
  /// Statement of the engine's own SQL, kept under it.
  Preparata Prepara(const std::string& sqlMotore);
  /// Statement of a text's shape, translated when it is new.
  Preparata PreparaForma(std::string_view testo, const sql::Forma& forma);
  /// Throws when the database is closed.
  void Verifica() const;
  /// A table by name; throws when there is none.
  [[nodiscard]] const TabellaArchivio& Tabella(std::string_view nome) const;
};

/// Sets value `v` as parameter `indice` (from 1).
void LegaValore(sqlite3_stmt* istruzione, int indice, const Valore& v);
/// Binds a text's literals as its plan says; throws ErroreArchivio naming `testo`.
void LegaLetterali(sqlite3_stmt* istruzione, const sql::Istruzione& piano, const sql::Forma& forma,
                   std::string_view testo);

/// Opens a connection to `file`, which must exist unless `crea`; throws ErroreArchivio.
sqlite3* ApriConnessione(const std::filesystem::path& file, const std::string& vfs, bool crea);
/// First column of the first row of an engine statement, 0 without one; throws ErroreArchivio.
std::int64_t InteroMotore(sqlite3* connessione, const std::string& sql,
                          const std::filesystem::path& file);
/// Runs engine statements; throws ErroreArchivio.
void EseguiMotore(sqlite3* connessione, const std::string& sql, const std::filesystem::path& file);

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

class NucleoBasi {
 public:
  NucleoBasi(PercorsiArchivi percorsi, OpzioniApertura opzioni);
  ~NucleoBasi();
  NucleoBasi(const NucleoBasi&) = delete;
  NucleoBasi& operator=(const NucleoBasi&) = delete;

  /// Opens tessarc and attaches scadenzario; throws ErroreArchivio.
  void Apri();
  /// Closes the connection; open result sets keep what they have read.
  void Chiudi() noexcept;
  [[nodiscard]] sqlite3* Connessione() const { return connessione_; }
  [[nodiscard]] const PercorsiArchivi& Percorsi() const { return percorsi_; }
  [[nodiscard]] const OpzioniApertura& Opzioni() const { return opzioni_; }

  /// Reads to their end the open cursors that took no rows for that long.
  void RilasciaLetture(std::chrono::milliseconds ferme);

  /// Called before every statement: counts it, fails it when the seam says so, and refuses it when
  /// the engine has given up the transaction it belongs to.
  void PrimaDiEseguire();
  /// First step of a statement; waits for others, throws ErroreArchivio naming `archivio`. Returns
  /// whether there is a row.
  bool PrimoPasso(const Preparata& preparata, const DatiArchivio& archivio);
  /// A further step.
  bool Passo(const Preparata& preparata, const DatiArchivio& archivio);
  /// Runs an action on a table of `archivio`, so that no open cursor sees half of it; returns the
  /// rows changed. An empty table means any.
  std::int64_t EseguiAzione(const Preparata& preparata, const DatiArchivio& archivio,
                            const std::string& tabella);

  void Inizia(Transazione::Ambito ambito);
  /// A statement that takes the write lock of tessarc and changes nothing.
  const std::string& NienteInTessarc();
  void Conferma();
  void Annulla() noexcept;
  [[nodiscard]] bool InTransazione() const { return inTransazione_; }

  void Registra(CursoreAperto* cursore) { cursori_.push_back(cursore); }
  void Dimentica(CursoreAperto* cursore) noexcept;

  /// Attaches a scratch database and returns its schema name; throws ErroreArchivio.
  std::string Attacca(const std::filesystem::path& percorso);
  /// Detaches it now, or after the running transaction.
  void Stacca(const std::string& schema) noexcept;

  void Aggiungi(DatiArchivio* archivio) { archivi_.push_back(archivio); }
  void Togli(const DatiArchivio* archivio) noexcept;
  [[nodiscard]] bool Aperto(const std::filesystem::path& percorso) const;
  /// The open database of a path or key; throws ErroreArchivio.
  [[nodiscard]] DatiArchivio& Trova(const std::filesystem::path& percorso) const;

  void ImpostaGuasto(int n, Guasto guasto);
  [[nodiscard]] int IstruzioniEseguite() const { return eseguite_; }
  [[nodiscard]] fenalto::Blocchi& Blocchi();

 private:
  void EseguiContata(const char* sql);
  [[nodiscard]] DatiArchivio* PerPercorso(const std::filesystem::path& percorso) const;
  void CompletaCursori(const DatiArchivio& archivio, const std::string& tabella);
  bool CompletaTutti();
  void StaccaOra(const std::string& schema) noexcept;
  void StaccaRimandati() noexcept;

  PercorsiArchivi percorsi_;
  OpzioniApertura opzioni_;
  AttesaArchivio attesa_;
  sqlite3* connessione_ = nullptr;
  std::optional<fenalto::Blocchi> blocchi_;
  std::string nienteInTessarc_;
  bool inTransazione_ = false;
  int eseguite_ = 0;
  int mancanoAlGuasto_ = 0;
  Guasto guasto_ = Guasto::Nessuno;
  int prossimoTemporaneo_ = 1;
  std::vector<CursoreAperto*> cursori_;
  std::vector<DatiArchivio*> archivi_;
  std::vector<std::string> daStaccare_;
};

}  // namespace fenalto

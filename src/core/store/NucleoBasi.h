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
#include "core/store/engine/Motore.h"

namespace fenalto {

class NucleoBasi;

/// Names of the two databases on the connection, their keys too.
inline constexpr const char* kTessarc = "tessarc";
inline constexpr const char* kScadenzario = "scadenzario";

/// The two databases as an engine takes them.
std::vector<engine::Base> BasiDi(const PercorsiArchivi& percorsi);

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
  std::string base;      ///< on the connection
  bool chiuso = false;
  CatalogoArchivio catalogo;
  CacheIstruzioni cache;

  explicit DatiArchivio(std::shared_ptr<const VisteArchivio> viste) : catalogo(std::move(viste)) {}
  /// Statement that the dialect has written already, kept under it; its errors name `diBase`, this
  /// base when empty.
  Preparata Prepara(const std::string& sqlMotore, const std::string& diBase = {});
  /// Statement of a text's shape, translated when it is new.
  Preparata PreparaForma(std::string_view testo, const sql::Forma& forma);
  /// How the engine writes.
  [[nodiscard]] const sql::Dialetto& Dialetto() const;
  /// Throws when the database is closed.
  void Verifica() const;
  /// A table by name; throws when there is none.
  [[nodiscard]] const TabellaArchivio& Tabella(std::string_view nome) const;
};

/// Binds a text's literals as its plan says; throws ErroreArchivio naming `testo`.
void LegaLetterali(engine::Istruzione& istruzione, const sql::Istruzione& piano,
                   const sql::Forma& forma, std::string_view testo);

class NucleoBasi {
 public:
  NucleoBasi(const engine::Motore& motore, PercorsiArchivi percorsi, OpzioniApertura opzioni);
  ~NucleoBasi();
  NucleoBasi(const NucleoBasi&) = delete;
  NucleoBasi& operator=(const NucleoBasi&) = delete;

  /// Opens both databases; throws ErroreArchivio.
  void Apri();
  /// Closes the connection; open result sets keep what they have read.
  void Chiudi() noexcept;
  [[nodiscard]] engine::Connessione& Connessione() const { return *connessione_; }
  [[nodiscard]] const engine::Motore& Motore() const { return motore_; }
  [[nodiscard]] const PercorsiArchivi& Percorsi() const { return percorsi_; }
  [[nodiscard]] const OpzioniApertura& Opzioni() const { return opzioni_; }

  /// Reads to their end the open cursors that took no rows for that long.
  void RilasciaLetture(std::chrono::milliseconds ferme);

  /// Called before every statement: counts it, fails it when the seam says so, and refuses it when
  /// the engine has given up the transaction it belongs to.
  void PrimaDiEseguire();
  /// First step of a statement; waits for others, throws ErroreArchivio. Returns whether there is
  /// a row.
  bool PrimoPasso(const Preparata& preparata);
  /// Runs an action on a table of `archivio`, so that no open cursor sees half of it; returns the
  /// rows changed. An empty table means any.
  std::int64_t EseguiAzione(const Preparata& preparata, const DatiArchivio& archivio,
                            const std::string& tabella);

  void Inizia(Transazione::Ambito ambito);
  void Conferma();
  void Annulla() noexcept;
  [[nodiscard]] bool InTransazione() const { return inTransazione_; }

  void Registra(CursoreAperto* cursore) { cursori_.push_back(cursore); }
  void Dimentica(CursoreAperto* cursore) noexcept;

  void Aggiungi(DatiArchivio* archivio) { archivi_.push_back(archivio); }
  void Togli(const DatiArchivio* archivio) noexcept;
  /// The open database of a path or key; throws ErroreArchivio.
  [[nodiscard]] DatiArchivio& Trova(const std::filesystem::path& percorso) const;

  void ImpostaGuasto(int n, Guasto guasto);
  [[nodiscard]] int IstruzioniEseguite() const { return eseguite_; }
  [[nodiscard]] fenalto::Blocchi& Blocchi();

 private:
  /// Runs `lavoro`, and again once the open cursors are read when it was another station that
  /// stopped it.
  template <typename Lavoro>
  auto DopoICursori(const Lavoro& lavoro);
  [[nodiscard]] DatiArchivio* PerPercorso(const std::filesystem::path& percorso) const;
  void CompletaCursori(const DatiArchivio& archivio, const std::string& tabella);
  void CompletaTutti();

  const engine::Motore& motore_;
  PercorsiArchivi percorsi_;
  OpzioniApertura opzioni_;
  std::unique_ptr<engine::Connessione> connessione_;
  std::unique_ptr<fenalto::Blocchi> blocchi_;
  bool inTransazione_ = false;
  int eseguite_ = 0;
  int mancanoAlGuasto_ = 0;
  Guasto guasto_ = Guasto::Nessuno;
  std::vector<CursoreAperto*> cursori_;
  std::vector<DatiArchivio*> archivi_;
};

}  // namespace fenalto

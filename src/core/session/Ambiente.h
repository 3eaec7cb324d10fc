// The session: which company, which year, which currency, which databases, which user.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Porte.h"
#include "core/store/BasiDati.h"
#include "core/values/Esito.h"
#include "core/values/Rinvio.h"

namespace fenalto {

class Presenza;

/// Rights: 99 all functions, 50 all but accounting, 30 only stock movements and supplier orders; a
/// function that asks 0 asks none.
struct Utente {
  std::string cod;
  std::string descrizione;
  int livello = 99;
};

/// How the daily backups of a company stand.
struct StatoCopie {
  Data ultima;           ///< the null date when there is none
  int giorni = 0;        ///< since the last one
  bool inCorso = false;  ///< one is being made
  /// Older than a week, or none at all: with a backup a day something keeps it from being made.
  [[nodiscard]] bool Vecchia() const { return !inCorso && (ultima.Nulla() || giorni > 7); }
};

struct OpzioniAmbiente {
  /// Holds `DittaDefault.txt`, each company's `.ini`, `Ini/`. When its path has a component that
  /// begins with "TESSARC" (in any case), companies' folders stand beside that component, otherwise
  /// inside the program folder.
  std::filesystem::path cartellaProgramma;
  /// What the program is shipped with: `schema/`, `modello/`, `fonts/`, `icons/`.
  std::filesystem::path cartellaDati;
  /// Name of this station, for locks.
  std::string stazione;
  /// File layer of the engine, for tests.
  std::string vfs;
  /// Make the daily backup (off in tests that don't want it).
  bool copie = true;
  /// How a log-in that was tried too often is slowed down; sleeps when empty.
  std::function<void(std::chrono::milliseconds)> attendi = {};
};

class Ambiente {
 public:
  Ambiente(OpzioniAmbiente opzioni, Dialoghi& dialoghi, Orologio& orologio, Caso& caso);
  ~Ambiente();
  Ambiente(const Ambiente&) = delete;
  Ambiente& operator=(const Ambiente&) = delete;

  // --- Start and choice of company -------------------------------------------------------------

  /// Opens the session: makes the program folder usable, offers the companies as found (default
  /// first) and the year, logs the user in, opens. Tells what went wrong through Dialoghi and
  /// returns false when the session couldn't start or the user gave up.
  /// `ditta` not empty is opened on its last year without the choice.
  bool Avvia(const std::string& ditta = "");
  /// Finishes or takes back what a killed program had under way on companies' files, and empties
  /// the bin of what is old; what was finished is told. Avvia does it first.
  void RiprendiLavori();
  /// The same choice on a running session; false leaves the session as it was.
  bool SelezioneArchivi();
  /// Companies with a settings file in the program folder, the default first, then by name.
  [[nodiscard]] std::vector<DittaTrovata> DitteTrovate() const;
  /// Company named by `DittaDefault.txt`, empty when missing, empty or naming nothing that exists.
  [[nodiscard]] std::string DittaPredefinita() const;
  /// Years of a company that isn't open; an error when it can't be read.
  [[nodiscard]] Esito<std::vector<int>> AnniDi(const std::string& ditta) const;
  /// Opens a company on `anno` (its last year when 0). On error the session is as it was before.
  Esito<bool> ApriDitta(const std::string& ditta, int anno = 0);
  void ChiudiDitta();
  /// Opens a company for who was working, without a log-in: after it was closed for a while.
  Esito<bool> RiapriDitta(const std::string& ditta, int anno, const Utente& utente);
  /// The place that this session holds among those that have the company open (PresenzaDitta.h).
  [[nodiscard]] std::shared_ptr<Presenza> PresenzaQui() const;
  [[nodiscard]] bool DittaAperta() const;

  // --- What the session is on --------------------------------------------------------------------

  [[nodiscard]] const std::string& Ditta() const;
  [[nodiscard]] int Anno() const;
  /// The selected year is kept in euro (in lire otherwise).
  [[nodiscard]] bool Euro() const;
  [[nodiscard]] const std::vector<int>& Anni() const;
  /// Selects a year of the list; an error when the company has no such year.
  Esito<bool> ScegliAnno(int anno);
  /// The list of years as it is now; when the selected one has gone, the last of them is selected.
  Esito<bool> RileggiAnni();

  // --- Users
  // ---------------------------------------------------------------------------------------

  [[nodiscard]] const Utente& UtenteCorrente() const;
  /// Whether the open company has users, so that a log-in is needed.
  [[nodiscard]] bool ServeAccesso() const;
  /// Checks user and password and takes the user's level; slower after five wrong tries.
  Esito<bool> Accedi(const std::string& cod, const std::string& password);
  /// Whether the user may open a function that asks `livello` (0 asks none).
  [[nodiscard]] bool HaDiritto(int livello) const;

  // --- Paths
  // -----------------------------------------------------------------------------------------

  [[nodiscard]] const std::filesystem::path& CartellaProgramma() const;
  [[nodiscard]] const std::filesystem::path& CartellaDati() const;
  /// What the session was made with, its folders absolute.
  [[nodiscard]] const OpzioniAmbiente& Opzioni() const;
  /// The folder of the open company; what a backup by hand copies.
  [[nodiscard]] std::filesystem::path CartellaDitta() const;
  [[nodiscard]] std::filesystem::path CartellaDitta(const std::string& ditta) const;
  /// `Documenti` of the company, or the folder of the setting `DirectoryDoc`.
  [[nodiscard]] std::filesystem::path CartellaDocumenti() const;
  /// `Immagini` of the company, or the folder of the setting `DirectoryImm`.
  [[nodiscard]] std::filesystem::path CartellaImmagini() const;
  /// Path of the database behind `tessarc` or `scadenzario`, in any case.
  [[nodiscard]] std::filesystem::path PercorsoDb(std::string_view chiave) const;
  [[nodiscard]] std::filesystem::path FileImpostazioni() const;
  /// The settings of this station, `Ini/Ini.ini` of the program folder.
  [[nodiscard]] std::filesystem::path FileStazione() const;

  // --- Data
  // --------------------------------------------------------------------------------------------

  [[nodiscard]] BasiDati& Basi();
  [[nodiscard]] Archivio& ArchivioDi(std::string_view chiave);
  /// Opens the databases of another company beside those of the session.
  [[nodiscard]] Esito<std::unique_ptr<BasiDati>> ApriAltre(const PercorsiArchivi& percorsi) const;
  /// One field of the first record that meets all pairs; Null when there is none.
  Valore Cerca(std::string_view chiave, std::string_view tabella,
               const std::vector<Coppia>& condizioni, std::string_view campoRisultato);
  /// Highest (lowest) value of a field among the rows that meet all pairs; 0 over nothing.
  Valore Max(std::string_view campo, std::string_view tabella,
             const std::vector<Coppia>& condizioni, Archivio& archivio);
  Valore Min(std::string_view campo, std::string_view tabella,
             const std::vector<Coppia>& condizioni, Archivio& archivio);
  /// Whether such a record exists; when `avvisa` is not empty and it does, the user is told so:
  /// `avvisa` names the thing ("articolo").
  bool Esiste(std::string_view chiave, std::string_view tabella,
              const std::vector<Coppia>& condizioni, std::string_view avvisa = "");
  /// The numbering lock of a table. Waits at most ten seconds when `attendi`; tells the user who
  /// holds it when it can't be had, and then returns a lock that isn't held.
  Blocco BloccaTabella(std::string_view tabella, bool attendi);
  /// The earliest date of the system, the from-date of "all": 01/01/1990.
  [[nodiscard]] static Data DataMinima();

  // --- Settings
  // ----------------------------------------------------------------------------------------

  /// Text of a key, empty when missing. An empty `file` means the company's settings.
  [[nodiscard]] std::string LeggiImpostazione(const std::filesystem::path& file,
                                              std::string_view sezione, std::string_view chiave);
  /// Writes a key, making the section when needed; tells the user when it can't.
  bool ScriviImpostazione(const std::filesystem::path& file, std::string_view sezione,
                          std::string_view chiave, std::string_view valore);
  /// A key of section `config` of the open company (core/session/Chiavi.h).
  [[nodiscard]] std::string Config(std::string_view chiave);
  /// What another station wrote is seen from the next read on, not a tenth of a second later: for
  /// a window that opens.
  void RiguardaImpostazioni();

  // --- Records
  // --------------------------------------------------------------------------------------------

  /// The user has opened or confirmed this record: it leads those touched last. Its function is
  /// "Movimenti", "Fatture", or an archive's table in capitals.
  void Ricorda(const Rinvio& record);
  /// Records that this user has touched at this station, the last one first; some may be gone.
  [[nodiscard]] std::vector<Rinvio> Recenti() const;

  // --- Ports
  // -------------------------------------------------------------------------------------------

  [[nodiscard]] Dialoghi& Dialogo();
  [[nodiscard]] Orologio& Ora();
  [[nodiscard]] Caso& Sorte();
  /// Announces a number: "ARTICOLO CONTABILE n. 12", a line, "annotare il numero".
  void AvvisoNumero(std::string_view oggetto, std::int64_t numero, std::string_view invito);

  // --- Backup
  // ------------------------------------------------------------------------------------------

  /// Starts the daily backup of the open company on a thread of its own when it is due; a failure
  /// is kept for EsitoCopia. Called when the window is usable, and again from time to time, for the
  /// company opened later and for the program left open overnight: each day is tried once.
  void AvviaCopia();
  /// Failure of the last backup, once; empty when it went well or still runs.
  std::string EsitoCopia();
  /// How the open company's backups stand.
  [[nodiscard]] StatoCopie Copie() const;
  /// Waits for a running backup.
  void AttendiCopia();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto

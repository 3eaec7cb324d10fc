// Documents attached to a record: copies kept in the company's folder of documents, one row of
// `Allegati` each.
//
// On a record that is stored a document is kept at once. On a new one it waits, and is copied and
// written with the record. A file is there before the transaction that names it commits, and goes
// after the one that forgets it: a row never names a file that isn't there.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto {

struct Allegato {
  std::int64_t num = 0;  ///< 0 while it waits for its record
  std::string descrizione;
  std::filesystem::path file;
};

class Allegati {
 public:
  /// `tipo` names the kind of record ("PrimaNota"), `descrizione` its documents.
  Allegati(Ambiente& ambiente, std::string tipo, std::string descrizione);
  ~Allegati();
  Allegati(const Allegati&) = delete;
  Allegati& operator=(const Allegati&) = delete;

  /// Links to the record of that identity (0 is a new one) and reads its documents. `seconda` goes
  /// after the description ("Articolo n.: 12"); it comes with the confirmation of a new record.
  void Collega(std::int64_t idRecord, std::string_view seconda = "");
  /// Forgets the record and what waits.
  void Scollega();

  [[nodiscard]] const std::vector<Allegato>& Elenco() const { return elenco_; }
  /// Whether documents wait for the confirmation.
  [[nodiscard]] bool InAttesa() const;
  Esito<bool> Aggiungi(const std::filesystem::path& file);
  Esito<bool> Togli(std::size_t indice);

  // The confirmation: inside the caller's transaction.

  /// Copies and writes what waits, and gives all documents of the record their texts. Throws
  /// ErroreArchivio; then, or when the transaction fails later, the caller calls Annullati.
  void Scrivi(std::int64_t idRecord, std::string_view seconda);
  /// The transaction was committed.
  void Confermati();
  /// The transaction failed: what was copied for it is removed and waits again.
  void Annullati() noexcept;

  // The deletion of the record.

  /// Deletes the rows, inside the caller's transaction.
  void EliminaRighe();
  /// Removes the files, after the commit, and forgets the record.
  void EliminaFile();

 private:
  [[nodiscard]] std::string Testo(std::string_view seconda) const;
  std::string Copia(const std::filesystem::path& file, std::int64_t idRecord) const;
  std::int64_t Inserisci(const std::string& nomeFile, std::int64_t idRecord,
                         const std::string& testo);

  Ambiente& ambiente_;
  std::string tipo_;
  std::string descrizione_;
  std::string seconda_;
  std::int64_t idRecord_ = 0;
  std::vector<Allegato> elenco_;
  std::vector<std::filesystem::path> copiati_;  ///< by a transaction that isn't committed yet
};

}  // namespace fenalto

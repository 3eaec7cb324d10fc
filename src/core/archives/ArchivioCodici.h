// The use case of every archive of codes: open, new, duplicate, confirm, delete, for whatever
// archive is described.
//
// A record of the table is in edit from its opening to its confirmation or giving up, so that no
// other station changes it meanwhile; it is all the same compared with what was read before it is
// written, since statements of other functions don't ask for that lock.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/archives/DescrizioneArchivio.h"

namespace fenalto::archives {

class ArchivioCodici {
 public:
  ArchivioCodici(Ambiente& ambiente, DescrizioneArchivio descrizione);
  ~ArchivioCodici();

  [[nodiscard]] const DescrizioneArchivio& Descrizione() const;
  [[nodiscard]] bool Aperto() const;
  [[nodiscard]] bool Nuovo() const;
  /// The record is in edit elsewhere (told at opening): it can be looked at and not changed.
  [[nodiscard]] bool SolaLettura() const;
  [[nodiscard]] bool Modificato() const;
  /// Records are neither added nor deleted here, and keep their codes.
  [[nodiscard]] bool SoloEsistenti() const;
  /// "nuovo agente", "agente 12"; empty while nothing is open.
  [[nodiscard]] std::string Titolo() const;
  /// The open record: the table's columns and the extra fields.
  [[nodiscard]] Scheda& Record();
  [[nodiscard]] ContestoArchivio& Contesto();

  /// Opens the record of that code; false when there is none (nothing is told, nothing changes).
  bool Apri(const std::string& codice);
  /// Begins a new record; false when none can be (told, or records are only those there are).
  bool Inizia();
  /// The open record as a new one, without its code (or with the one that a new record is
  /// proposed); false as Inizia, and then the record stays as it is.
  bool Duplica();
  /// A field was left with a new value.
  void Lasciato(const std::string& campo);
  [[nodiscard]] records::StatoCampo Stato(const std::string& nome) const;

  /// Checks in their order: empty code, the archive's own, an existing code, guards and references
  /// of a changed code, changed or deleted elsewhere (asked). Then writes in one transaction and
  /// closes the record. True when written; otherwise the user was told, `rifiuto` names the field
  /// to go to, and the record is still open as typed.
  bool Conferma(Rifiuto* rifiuto = nullptr);
  /// The code of the record confirmed last, empty while none was.
  [[nodiscard]] const std::string& UltimoConfermato() const;
  /// Asks, checks the guards and references, erases, closes the record. True when erased.
  bool Elimina();
  /// Gives the open record up.
  void Abbandona();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::archives

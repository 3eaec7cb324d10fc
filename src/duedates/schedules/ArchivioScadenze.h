// The use case of one due date: open, new, confirm, delete, restore a paid one.
//
// The record is in edit from its opening to its confirmation or giving up; it is all the same
// compared with what was read before it is written, since payments don't ask for that lock.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "core/session/Scheda.h"

namespace fenalto::duedates {

/// `Programma` of a due date that a user typed.
inline constexpr const char* kProgrammaManuale = "scadenze";

class ArchivioScadenze {
 public:
  /// Of a document's window the party is given, and the confirmation is told.
  enum class Uso { Archivio, Documento };

  explicit ArchivioScadenze(Ambiente& ambiente, Uso uso = Uso::Archivio);
  ~ArchivioScadenze();

  [[nodiscard]] bool Aperta() const;
  [[nodiscard]] bool Nuova() const;
  /// The record is in edit elsewhere (told at opening).
  [[nodiscard]] bool SolaLettura() const;
  [[nodiscard]] bool Modificata() const;
  /// "nuova scadenza ", "scadenza n. 12"; empty while nothing is open.
  [[nodiscard]] std::string Titolo() const;
  /// All columns of the table.
  [[nodiscard]] Scheda& Record();
  /// The one opened or written last.
  [[nodiscard]] std::int64_t Numero() const;

  /// False when there is none of that number: nothing is told, nothing changes.
  bool Apri(std::int64_t numero);
  /// A new one, with what is given over what is proposed (today, the selected year). It gets its
  /// number when it is written.
  void Inizia(const std::vector<Coppia>& valori = {});

  /// Checks, warnings, then the writing, after which nothing is open any more. False when a check
  /// or the user stopped it (told): `campo` names the field to go to, and what was typed stays.
  bool Conferma(std::string* campo = nullptr);
  /// Warns, asks, erases. False when it is still there.
  bool Elimina();
  /// Whether the open one counts as paid and could be restored.
  [[nodiscard]] bool Ripristinabile() const;
  /// Asks and writes the due date as not paid, which stays open with what was typed. A payment's
  /// amount goes back to nothing, so that the whole can be paid again; a receipt's presentation is
  /// taken off, and what had been paid of it before stays paid.
  bool Ripristina();

  /// A registration of the selected year to be shown.
  struct Registrazione {
    std::int64_t numero = 0;
    bool iva = false;  ///< it stands on a VAT register
  };
  /// Asks whether to see the registration of the open one; tells when there is none to see.
  std::optional<Registrazione> VedereRegCont();
  /// Gives the open record up.
  void Abbandona();

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::duedates

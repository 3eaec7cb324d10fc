// Layout of the file of bank receipts, lines of 120 columns: records and fields as a table, which
// both the writer and the checking reader follow.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace fenalto::duedates {

inline constexpr int kColonneRiba = 120;
inline constexpr std::string_view kFineRigaRiba = "\r\n";

/// One "IB", the seven records of each receipt in this order, one "EF".
enum class RecordRiba { Ib, R14, R20, R30, R40, R50, R51, R70, Ef };
inline constexpr int kRecordRiba = 9;
inline constexpr int kRecordPerRicevuta = 7;

/// How a field is written.
enum class GenereRiba {
  Fisso,   ///< the same characters in every file
  Vuoto,   ///< blanks
  Testo,   ///< letters from the left, blanks on the right
  Cifre,   ///< a code of digits: zeros on the left, blanks when there is none
  Numero,  ///< zeros on the left
  Data,    ///< "ddmmyy", blanks for the null date
  Segno,   ///< sign of the amount before it
};

/// What a field holds.
enum class DatoRiba {
  Nessuno,
  // Of the whole batch.
  CodiceSia,
  AbiBanca,
  CabBanca,
  ContoBanca,
  DataDistinta,
  CreditoreRagSoc1,
  CreditoreRagSoc2,
  CreditoreIndirizzo,
  CreditoreLocalita,
  CreditorePiva,
  // Of each receipt.
  NumeroRicevuta,
  NumeroInterno,
  Scadenza,
  Importo,
  SegnoImporto,
  DebitoreAbi,
  DebitoreCab,
  DebitoreRagSoc1,
  DebitoreRagSoc2,
  DebitorePiva,
  DebitoreIndirizzo,
  DebitoreCap,
  DebitoreLocalita,
  DebitoreBanca,
  Riferimenti,
  // Of the file.
  NumeroDisposizioni,
  ImportoTotale,
  NumeroRecord,
};

struct CampoRiba {
  int posizione;  ///< from 1
  int larghezza;
  GenereRiba genere;
  DatoRiba dato;
  bool obbligatorio;
  std::string_view nome;   ///< as the user is told of it
  std::string_view fisso;  ///< content of a fixed field
};

/// Who decides the sign at column 47 of record "14": the program wrote "+" for a charge, the layout
/// that banks publish has "-" whatever the amount.
enum class RibaSegno { DellImporto, SempreMeno };

/// The key `RibaSegno` of the settings: "-" is the published layout, anything else the program's.
[[nodiscard]] RibaSegno RibaSegnoDaChiave(std::string_view valore);

/// Fields of a record in order: they cover columns 1 to 120 without gaps.
[[nodiscard]] std::span<const CampoRiba> CampiRiba(RecordRiba record);
/// "IB", "14", ... "EF".
[[nodiscard]] std::string_view CodiceRecord(RecordRiba record);
/// The record of a line, by its first three columns.
[[nodiscard]] std::optional<RecordRiba> RecordDiLinea(std::string_view linea);
/// Columns of the field in the line; less when the line is short.
[[nodiscard]] std::string_view ParteDiLinea(std::string_view linea, const CampoRiba& campo);
/// Whether the field says the same wherever it stands in a file: what belongs to bank, company or
/// batch.
[[nodiscard]] bool DellaDistinta(DatoRiba dato);

/// Whether banks take the character: ASCII, without those that stand for other letters on some of
/// their systems.
[[nodiscard]] bool AmmessoRiba(char carattere);
/// The text in those characters: accents off, the euro sign as "EUR", other marks as the nearest
/// one, "?" for what has none.
[[nodiscard]] std::string LettereRiba(std::string_view testo);

}  // namespace fenalto::duedates

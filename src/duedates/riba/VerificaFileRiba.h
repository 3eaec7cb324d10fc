// A file of bank receipts read back: what a bank would refuse, by line and column.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/values/Data.h"
#include "core/values/Esito.h"
#include "core/values/Importo.h"
#include "duedates/riba/TracciatoRiba.h"

namespace fenalto::duedates {

/// After so many grave remarks the reading stops; of the others no more than these are kept.
inline constexpr std::size_t kMassimoSegnalazioniRiba = 100;

struct SegnalazioneRiba {
  std::size_t riga = 0;  ///< from 1
  int colonna = 0;       ///< from 1
  std::string messaggio;
  /// The layout is broken. Otherwise something that is allowed and that a bank may refuse: a
  /// mandatory field that is blank, a code with letters, a negative total.
  bool grave = true;

  /// "riga 3, colonna 47: ..."
  [[nodiscard]] std::string Testo() const;
};

/// A receipt as the file says it.
struct RicevutaLetta {
  int numero = 0;
  Data scadenza;  ///< years 00 to 79 are 2000 to 2079
  Importo importo;
  std::string debitore;
  std::string riferimenti;
};

struct LetturaRiba {
  std::vector<RicevutaLetta> ricevute;
  Importo totale;
  std::size_t righe = 0;
  std::vector<SegnalazioneRiba> segnalazioni;

  /// No grave remark.
  [[nodiscard]] bool Buona() const;
};

/// Reads the lines and checks them: length and end of each, order and count of records,
/// numbering, totals, fixed parts, digits, letters, and that what belongs to the batch says the
/// same in every record.
[[nodiscard]] LetturaRiba VerificaRiba(std::string_view testo, RibaSegno segno);

/// The same of a file on the disk; the error says why it can't be read.
Esito<LetturaRiba> VerificaFileRiba(const std::filesystem::path& percorso, RibaSegno segno);

/// The bytes of the file, whatever they are.
Esito<std::string> LeggiByteRiba(const std::filesystem::path& percorso);

}  // namespace fenalto::duedates

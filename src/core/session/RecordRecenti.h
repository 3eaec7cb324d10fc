// The records that each user has touched last at this station: a small text file a station.
//
// It is a convenience: it is written without waiting for the disk, and what can't be read or
// written is left out without a word.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "core/values/Rinvio.h"

namespace fenalto {

class RecordRecenti {
 public:
  /// How many are kept of a user.
  static constexpr std::size_t kTenuti = 20;

  /// In `cartella`, which is made with the first record.
  RecordRecenti(const std::filesystem::path& cartella, const std::string& stazione);

  /// The record comes first among the user's.
  void Aggiungi(const std::string& utente, const Rinvio& record);
  /// The last one first.
  [[nodiscard]] std::vector<Rinvio> Di(const std::string& utente) const;

 private:
  void Leggi();
  void Scrivi() const;

  std::filesystem::path file_;
  std::vector<std::pair<std::string, Rinvio>> record_;  ///< user and record, the last one first
};

}  // namespace fenalto

// The folder `Cestino` beside the companies: what was deleted or replaced, for a while.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/session/Ditte.h"
#include "core/values/Data.h"

namespace fenalto {

/// Days that what was deleted is kept.
inline constexpr int kGiorniCestino = 30;

struct VoceCestino {
  std::filesystem::path cartella;
  std::string nome;  ///< of the company
  Data quando;
};

/// What is in the bin, the oldest first. Folders that aren't the bin's own are left out.
std::vector<VoceCestino> VociCestino(const Ditte& ditte);

/// A name of its own in the bin for that company; `adesso` is "AAAA-MM-GG HH.MM". The folder isn't
/// made.
std::filesystem::path NuovaVoceCestino(const Ditte& ditte, const std::string& nome,
                                       const std::string& adesso);

/// Deletes for good what is in the bin since `giorni` days or more; how many could be. What can't
/// be deleted now stays for another day.
int SvuotaCestino(const Ditte& ditte, Data oggi, int giorni);

}  // namespace fenalto

// What a company made as a copy takes of the one that is open.
#pragma once

#include <filesystem>
#include <set>

#include "core/archives/TabelleDitta.h"
#include "core/store/BasiDati.h"

namespace fenalto::admin {

/// Copies the codes, and of the kinds that leave a choice those in `tenute`, as they stand at one
/// instant. What names something that stays behind is emptied. Nothing of what was recorded ever
/// gets into the new files. Registers begin at zero, and those that the program counts on are as in
/// the model company of `cartellaDati`. Inside the caller's transaction on `a`; throws
/// std::exception.
void CopiaDati(BasiDati& da, BasiDati& a, const std::set<archives::SceltaDati>& tenute,
               const std::filesystem::path& cartellaDati);

}  // namespace fenalto::admin

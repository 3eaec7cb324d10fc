// Going back to a copy: in the open company, or in a new company beside it to look at first.
#pragma once

#include <filesystem>
#include <string>

#include "core/session/CopieDitta.h"

namespace fenalto {

/// Puts both databases of a copy in place of those of the open company, which nobody else may have
/// open: asks, verifies the copy, copies the present data, changes, opens again and tells what is
/// in it. Attachments of a whole copy that the company hasn't come back; no file is replaced. True
/// when the company stands on the copy; false when it is as it was (told). A process killed on the
/// way leaves the one or the other.
bool RipristinaNellaDitta(Ambiente& ambiente, CopiaDitta copia);

/// Makes a new company from a copy, under a name that is asked for, with the settings of a whole
/// copy or else of the open company; that one isn't touched. False when none was made (told, or
/// given up).
bool RipristinaInNuova(Ambiente& ambiente, CopiaDitta copia);

/// The last registration and the last document of a company, with their dates.
std::string UltimiDati(BasiDati& basi);

}  // namespace fenalto

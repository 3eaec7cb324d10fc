// A copy of everything that a company is, to any folder: it starts again from it on a new machine.
#pragma once

#include <filesystem>

#include "core/session/Ambiente.h"

namespace fenalto {

/// Copies databases, settings file, `Immagini` and `Documenti` of the open company into a new
/// folder in `dove`, named after company and hour: inside it things lie as in a program folder. The
/// folder gets its name when the copy is whole and verified. The error says what failed; nothing is
/// left then, nor when the user cancelled (an empty error).
Esito<std::filesystem::path> CopiaIntera(Ambiente& ambiente, const std::filesystem::path& dove);

/// Asks for the folder, copies and tells. False when nothing was copied.
bool CopiaAdesso(Ambiente& ambiente);

/// Files below a folder, regular ones and as they are reached through links.
std::vector<std::filesystem::path> FileSotto(const std::filesystem::path& cartella);

/// Copies the files below `da` to `a`, those that are there already left alone; null `passo` or a
/// step that returns false stops. Throws std::exception naming the file.
void CopiaFileSotto(const std::filesystem::path& da, const std::filesystem::path& a,
                    const std::function<bool()>& passo);

}  // namespace fenalto

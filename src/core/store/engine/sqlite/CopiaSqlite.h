// Copies of database files with the engine's own copy, and back again; see Motore.
#pragma once

#include "core/store/engine/Connessione.h"

namespace fenalto::engine::sqlite {

void CopiaFile(const std::vector<Base>& basi, const std::vector<std::filesystem::path>& copie);
void ControllaCopiaFile(const std::filesystem::path& copia, bool propria);
void RimettiFile(const std::vector<std::filesystem::path>& copie, const std::vector<Base>& basi);

}  // namespace fenalto::engine::sqlite

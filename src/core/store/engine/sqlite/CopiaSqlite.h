// Copies of database files, and files made to take the place of others.
#pragma once

#include <filesystem>
#include <vector>

#include "core/store/engine/Motore.h"

namespace fenalto::engine::sqlite {

// As engine::Motore tells.
void CopiaFile(const std::vector<Base>& basi, const std::vector<std::filesystem::path>& copie);
void ControllaCopiaFile(const std::filesystem::path& copia, bool propria);
std::vector<std::filesystem::path> PreparaFile(const std::vector<std::filesystem::path>& copie,
                                               const std::vector<std::filesystem::path>& archivi);
std::vector<std::filesystem::path> CompattaFile(const std::vector<std::filesystem::path>& archivi);

}  // namespace fenalto::engine::sqlite

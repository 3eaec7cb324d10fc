// Files that a product may name: those of the company's folders of images and documents.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

/// Greatest length of a file's name in a product.
inline constexpr int kCaratteriFile = 100;

/// Names of the files in a folder, in the order of texts; none when it can't be read.
std::vector<std::string> FileDi(const std::filesystem::path& cartella);

/// Whether a name can stand in a product; told when it is too long.
bool NomeFileAmmesso(Dialoghi& dialogo, const std::string& nome);

/// The file of that name in the folder; empty for none, and for a name that would lead out of it.
std::filesystem::path FileNella(const std::filesystem::path& cartella, const std::string& nome);

}  // namespace fenalto::warehouse

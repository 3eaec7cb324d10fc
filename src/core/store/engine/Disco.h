// What is written, on the disk.
#pragma once

#include <filesystem>

namespace fenalto::engine {

/// Waits until a file or folder is on the disk; throws std::runtime_error. A share that can't
/// synchronise a folder is passed over.
void Sincronizza(const std::filesystem::path& percorso);

}  // namespace fenalto::engine

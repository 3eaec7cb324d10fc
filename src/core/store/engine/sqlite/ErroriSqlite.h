// Error codes of the engine, told as the store tells them.
#pragma once

#include <filesystem>
#include <string_view>

#include "core/store/ErroreArchivio.h"

struct sqlite3;

namespace fenalto::engine::sqlite {

/// The error for the engine's result `codice` (extended codes too): cause, and a message that names
/// `file` and what to do. `testo` is the statement, told only when it is the statement's fault.
ErroreArchivio ErroreMotore(sqlite3* connessione, int codice, const std::filesystem::path& file,
                            std::string_view testo = {});

}  // namespace fenalto::engine::sqlite

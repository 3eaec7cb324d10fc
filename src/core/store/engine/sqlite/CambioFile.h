// Database files put in place of others, all or none, wherever the process is killed.
//
// The new files are made beside the old ones, in a folder of their own (`.cambio`). Once they are
// whole and on the disk a note is written (`Cont32.mdb.cambio`): from then on the change is done,
// and what is left of it is renames, which whoever comes next finishes. Before the note nothing has
// changed, and what was made is left-overs.
#pragma once

#include <filesystem>
#include <vector>

namespace fenalto::engine::sqlite {

/// Where the file that is to take the place of `archivio` is made.
std::filesystem::path PreparatoPer(const std::filesystem::path& archivio);

/// Puts what was prepared in place of the databases, which nobody has open; what they replace stays
/// beside, with the ending ".prima". On failure both are as they were. Throws std::exception.
void CambiaFile(const std::vector<std::filesystem::path>& archivi);

/// Finishes a change that a killed process began; does nothing where there is none. A change that
/// another process is doing is waited for. Throws std::exception.
void FinisciCambio(const std::vector<std::filesystem::path>& archivi);

/// Puts what the last change has put aside back in place, by a change of its own.
void RimettiPrima(const std::vector<std::filesystem::path>& archivi);
/// Takes away what the last change has put aside.
void TogliPrima(const std::vector<std::filesystem::path>& archivi) noexcept;
/// Takes away what was prepared and never put in place.
void TogliPreparati(const std::vector<std::filesystem::path>& archivi) noexcept;

}  // namespace fenalto::engine::sqlite

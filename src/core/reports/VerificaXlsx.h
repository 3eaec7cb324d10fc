// Proof that a spreadsheet file is whole.
#pragma once

#include <filesystem>

namespace fenalto::reports {

/// Whether every part of the archive unpacks and is an XML text with its end. The library that
/// writes spreadsheets keeps the parts in scratch files and doesn't notice when the disk of those
/// is full: it packs what there is.
[[nodiscard]] bool XlsxIntero(const std::filesystem::path& file);

}  // namespace fenalto::reports

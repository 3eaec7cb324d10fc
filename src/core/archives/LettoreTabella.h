// A table as other programs and spreadsheets export it: names of columns, then rows.
//
// Told by the file itself: `;`, `,` or tab between fields (the most frequent in the line of names),
// UTF-8 with or without mark or Windows-1252, LF or CR LF, quotes.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

#include "core/session/Csv.h"

namespace fenalto::archives {

inline constexpr std::size_t kMassimoRigheTabella = 200'000;

/// Bytes that are no characters in a file of UTF-8 stay in their fields, for whoever takes the
/// field to refuse, by row and column; in a name of a column they are an error.
///
/// Reads a file. Every row comes back with as many fields as there are names; columns without a
/// name are called "Colonna N", rows without any text are left out. An error says what is wrong,
/// where, and what to do: a file that isn't there or can't be read, is empty, isn't text, has more
/// than 200,000 rows or 64 MB, a row with more values than names.
Esito<TabellaCsv> LeggiTabella(const std::filesystem::path& file);

/// The same from the bytes of a file.
Esito<TabellaCsv> LeggiTabellaDaTesto(std::string_view byte);

}  // namespace fenalto::archives

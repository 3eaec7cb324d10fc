// Files that the program has written, as text.
#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>

#include "core/values/Esito.h"

namespace fenalto::copione {

Esito<QByteArray> LeggiByte(const std::filesystem::path& file);
/// Text of a file: a PDF through pdftotext, a spreadsheet's strings and values one a line, any
/// other as it is (UTF-8, or Latin-1 when it isn't valid UTF-8).
Esito<QString> LeggiTestoDi(const std::filesystem::path& file);

}  // namespace fenalto::copione

// The rooms' texts (UTF-8) as the toolkit takes them.
#pragma once

#include <QString>
#include <string>

namespace fenalto::screens {

/// The same text for the toolkit.
[[nodiscard]] inline QString Qs(const std::string& testo) {
  return QString::fromStdString(testo);
}

}  // namespace fenalto::screens

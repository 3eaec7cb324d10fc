// The key of a document.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/store/Archivio.h"

namespace fenalto::documents {

struct IdentitaDocumento {
  std::string tipoDoc;
  int anno = 0;
  std::int64_t numDoc = 0;
  bool operator==(const IdentitaDocumento&) const = default;

  /// Columns and values, of head and rows alike.
  [[nodiscard]] std::vector<Coppia> Chiave() const {
    return {{"TipoDoc", tipoDoc}, {"Anno", anno}, {"NumDoc", numDoc}};
  }
};

}  // namespace fenalto::documents

#include "core/sql/CriterioDopo.h"

#include <cstddef>
#include <utility>

#include "core/sql/Criterio.h"

namespace fenalto::sql {

std::string CriterioDopo(const std::vector<std::string_view>& chiavi,
                         const std::vector<Valore>& valori) {
  std::string dopo;
  for (std::size_t i = chiavi.size(); i-- > 0;) {
    std::string qui = Criterio(chiavi[i], ">", valori[i]);
    if (!dopo.empty()) {
      const std::string maggiore = std::exchange(qui, Criterio(chiavi[i], ">=", valori[i]));
      qui.append(" AND (").append(maggiore).append(" OR (").append(dopo).append("))");
    }
    dopo = std::move(qui);
  }
  return dopo;
}

}  // namespace fenalto::sql

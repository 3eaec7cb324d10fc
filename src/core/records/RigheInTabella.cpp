#include "core/records/RigheInTabella.h"

#include <stdexcept>
#include <string>

#include "core/sql/Criterio.h"

namespace fenalto::records {

void EliminaRighe(Archivio& archivio, std::string_view tabella, const std::vector<Coppia>& chiave) {
  if (chiave.empty()) throw std::invalid_argument("righe da eliminare senza la loro chiave");
  std::string sql = "delete * from " + std::string(tabella);
  const char* congiunzione = " where ";
  for (const auto& [campo, valore] : chiave) {
    sql.append(congiunzione).append(sql::Criterio(campo, "=", valore));
    congiunzione = " and ";
  }
  archivio.Esegui(sql);
}

}  // namespace fenalto::records

#include "core/records/RigheInTabella.h"

#include <stdexcept>
#include <string>

#include "core/sql/Criterio.h"

namespace fenalto::records {

std::string Condizione(const std::vector<Coppia>& chiave) {
  if (chiave.empty()) throw std::invalid_argument("righe senza la loro chiave");
  std::string sql;
  for (const auto& [campo, valore] : chiave) {
    if (!sql.empty()) sql += " and ";
    sql += sql::Criterio(campo, "=", valore);
  }
  return sql;
}

void EliminaRighe(Archivio& archivio, std::string_view tabella, const std::vector<Coppia>& chiave) {
  archivio.Esegui(
      std::string("delete * from ").append(tabella).append(" where ").append(Condizione(chiave)));
}

std::int64_t AggiornaRighe(Archivio& archivio, std::string_view tabella,
                           const std::vector<Coppia>& campi, const std::vector<Coppia>& chiave) {
  std::string sql = std::string("update ").append(tabella);
  const char* congiunzione = " set ";
  for (const auto& [campo, valore] : campi) {
    sql.append(congiunzione).append(campo).append("=").append(sql::LetteraleSql(valore));
    congiunzione = ",";
  }
  return archivio.Esegui(sql.append(" where ").append(Condizione(chiave)));
}

}  // namespace fenalto::records

#include "assets/LettoreCespiti.h"

#include "core/sql/Criterio.h"

namespace fenalto::assets {

namespace {

const char* StatoDi(bool completato, bool dismesso) {
  return dismesso ? "dismesso" : completato ? "ammortizzato" : "";
}

}  // namespace

void LettoreCespiti::Comincia(const archives::FiltroElenco& filtro) {
  ultimo_ = 0;
  finita_ = false;
  condizione_.clear();
  if (filtro.testo.empty()) return;
  for (const char* campo : {"Codice", "Descrizione", "sn", "Ubicaz", "Cat"}) {
    condizione_ += (condizione_.empty() ? "" : " OR ") + sql::CriterioContiene(campo, filtro.testo);
  }
  constexpr std::size_t kCifre = 9;
  if (filtro.testo.size() <= kCifre &&
      filtro.testo.find_first_not_of("0123456789") == std::string::npos) {
    condizione_ += " OR " + sql::Criterio("NCesp", "=", Valore(filtro.testo).Intero());
  }
}

archives::FonteElenco::Righe LettoreCespiti::Avanti() {
  Righe righe;
  Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT TOP " + std::to_string(kPagina) +
      " NCesp, Codice, Descrizione, Cat, Dal, AmmCompl, Dismesso FROM Cespiti "
      "WHERE " +
      sql::Criterio("NCesp", ">", ultimo_) +
      (condizione_.empty() ? "" : " AND (" + condizione_ + ")") + " ORDER BY NCesp");
  for (; !rs.Eof(); rs.MoveNext()) {
    ultimo_ = rs.Fields(0).Intero();
    righe.push_back({rs.Fields(0), rs.Fields(1), rs.Fields(2), rs.Fields(3), rs.Fields(4),
                     StatoDi(rs.Fields(5).Booleano(), rs.Fields(6).Booleano())});
  }
  finita_ = righe.size() < static_cast<std::size_t>(kPagina);
  return righe;
}

std::string LettoreCespiti::Testo(std::int64_t nCesp) {
  const Rs rs = ambiente_.ArchivioDi("tessarc").Recordset(
      "SELECT Descrizione, Cat, DescrCat FROM ZCESPITI WHERE " +
      sql::Criterio("NCesp", "=", nCesp));
  if (rs.Eof()) return {};
  return NzStr(rs.Fields(0)) + ", " + NzStr(rs.Fields(1)) + " " + NzStr(rs.Fields(2));
}

}  // namespace fenalto::assets

#include "screens/vat/entry/FontiFatture.h"

#include "core/sql/Criterio.h"

namespace fenalto::screens {
namespace {

std::shared_ptr<FonteCodici> DiTabella(Ambiente& ambiente, const std::string& tabella,
                                       const std::string& filtro = {}) {
  std::function<std::string()> condizione;
  if (!filtro.empty()) condizione = [filtro] { return filtro; };
  return std::make_shared<FonteTabella>(
      [&ambiente]() -> Archivio& { return ambiente.ArchivioDi("tessarc"); }, tabella, "Cod",
      "Descrizione", std::move(condizione));
}

}  // namespace

std::shared_ptr<FonteCodici> FonteRegistri(Ambiente& ambiente, const std::string& tipo) {
  return DiTabella(ambiente, "RegistriIva",
                   tipo.empty() ? std::string() : sql::Criterio("Tipo", "=", tipo));
}

std::shared_ptr<FonteCodici> FonteCodiciIva(Ambiente& ambiente) {
  return DiTabella(ambiente, "CodiciIva");
}

std::shared_ptr<FonteCodici> FontePagamenti(Ambiente& ambiente) {
  return DiTabella(ambiente, "Pagamento");
}

}  // namespace fenalto::screens

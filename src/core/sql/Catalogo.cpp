#include "core/sql/Catalogo.h"

#include "core/values/Testo.h"

namespace fenalto::sql {

const ColonnaCatalogo* TabellaCatalogo::Colonna(std::string_view nomeColonna) const {
  for (const ColonnaCatalogo& colonna : colonne) {
    if (UgualeTesto(colonna.nome, nomeColonna)) return &colonna;
  }
  return nullptr;
}

}  // namespace fenalto::sql

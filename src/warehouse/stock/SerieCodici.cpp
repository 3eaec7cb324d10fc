#include "warehouse/stock/SerieCodici.h"

#include <stdexcept>

#include "core/values/Testo.h"

namespace fenalto::warehouse {

bool SerieCodici::Al(const std::string& codice) {
  if (codice != ultimo_) {
    if (ConfrontaTesto(codice, ultimo_) < 0) {
      throw std::logic_error("prodotti chiesti fuori ordine: " + codice + " dopo " + ultimo_);
    }
    ultimo_ = codice;
  }
  for (; !rs_.Eof(); rs_.MoveNext()) {
    const Valore suo = rs_.Fields(0);
    const int confronto = ConfrontaTesto(suo.RifTesto(), codice);
    if (confronto >= 0) return confronto == 0;
  }
  return false;
}

}  // namespace fenalto::warehouse

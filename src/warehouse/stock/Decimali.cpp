#include "warehouse/stock/Decimali.h"

#include <charconv>

#include "core/session/Chiavi.h"
#include "core/values/FormatoImporto.h"

namespace fenalto::warehouse {
namespace {

int Decimali(Ambiente& ambiente, const char* chiave, int minimo) {
  constexpr int kMassimo = 4;
  constexpr int kConsueti = 2;
  const std::string testo = ambiente.Config(chiave);
  int decimali = 0;
  const auto letto = std::from_chars(testo.data(), testo.data() + testo.size(), decimali);
  if (letto.ec != std::errc() || decimali < minimo || decimali > kMassimo) return kConsueti;
  return decimali;
}

}  // namespace

int DecimaliQuantita(Ambiente& ambiente) {
  return Decimali(ambiente, "DecQ", 0);
}

int DecimaliPrezzo(Ambiente& ambiente) {
  return Decimali(ambiente, "DecP", 2);
}

std::string ScriviQuantita(Ambiente& ambiente, Importo quantita) {
  return ScriviImporto(quantita, DecimaliQuantita(ambiente));
}

std::string ScriviPrezzo(Ambiente& ambiente, Importo prezzo) {
  return ScriviImporto(prezzo, DecimaliPrezzo(ambiente));
}

}  // namespace fenalto::warehouse

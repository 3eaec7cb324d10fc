#include "core/reports/DecimaliStampe.h"

#include "core/reports/Sagoma.h"
#include "core/values/Aritmetica.h"

namespace fenalto::reports {
namespace {

/// Decimal places of a picture that has one number.
std::size_t PostiDecimali(std::string_view formato) {
  const auto virgola = formato.rfind(',');
  if (virgola == std::string_view::npos) return 0;
  const auto fine = formato.find_first_not_of('#', virgola + 1);
  return (fine == std::string_view::npos ? formato.size() : fine) - virgola - 1;
}

}  // namespace

int DecimaliStampe::Di(Importo importo) const {
  if (tre_) return 3;
  const Importo mostrato = Arrotonda(importo, 3, ModoArrotonda::Vicino);
  constexpr std::int64_t kCentesimo = Importo::kScala / 100;
  return mostrato.Decimillesimi() % kCentesimo == 0 ? 2 : 3;
}

std::string DecimaliStampe::DelModello(std::string_view formato, const Valore& valore) const {
  std::string suo(formato);
  if (valore.Tipo() != Tipo::Importo || PostiDecimali(formato) != 2) return suo;
  if (Di(valore.Importo()) == 3) suo.insert(suo.rfind(',') + 1, "#");
  return suo;
}

std::string DecimaliStampe::SulPannello(std::string_view sagoma, Importo importo, bool euro) const {
  std::string formato = PictureImporto(sagoma, euro);
  if (PostiDecimali(formato) == 3 && Di(importo) == 2) formato[formato.rfind(',') + 3] = ' ';
  const Valore valore(importo);
  return Sagoma(formato).Riempi({&valore, 1});
}

}  // namespace fenalto::reports

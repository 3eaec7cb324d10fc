#include "duedates/schedules/TestoScadenze.h"

#include <algorithm>
#include <array>

#include "core/reports/Sagoma.h"
#include "core/values/Testo.h"

namespace fenalto::duedates {
namespace {

constexpr std::string_view kUnione = " - ";

std::string ImportoEData(const RataDocumento& rata) {
  static const reports::Sagoma sagoma("###.###,### $$$$$$$$");
  // "dd/mm/yy" as the picture writes it, with points.
  std::string data = rata.data.Testo();
  constexpr std::size_t kGiornoMese = 6;
  if (!data.empty()) data.erase(kGiornoMese, 2);
  std::ranges::replace(data, '/', '.');
  const std::array<Valore, 2> campi = {rata.importo, data};
  return sagoma.Riempi(campi);
}

}  // namespace

std::string TestoScadenze(const std::vector<RataDocumento>& rate, std::size_t larghezza) {
  std::string testo;
  std::size_t riga = 0;
  for (const RataDocumento& rata : rate) {
    const std::string coppia = ImportoEData(rata);
    const std::size_t lunga = LunghezzaTesto(coppia);
    if (testo.empty()) {
      riga = lunga;
    } else if (riga + kUnione.size() + lunga <= larghezza) {
      testo += kUnione;
      riga += kUnione.size() + lunga;
    } else {
      testo += '\n';
      riga = lunga;
    }
    testo += coppia;
  }
  return testo;
}

}  // namespace fenalto::duedates

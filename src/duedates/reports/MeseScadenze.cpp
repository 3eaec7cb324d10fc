#include "duedates/reports/MeseScadenze.h"

#include <array>

namespace fenalto::duedates {
namespace {

constexpr int kMesiAnno = 12;

constexpr std::array<const char*, kMesiAnno> kMesi = {
    "gennaio", "febbraio", "marzo",     "aprile",  "maggio",   "giugno",
    "luglio",  "agosto",   "settembre", "ottobre", "novembre", "dicembre"};

}  // namespace

MeseScadenze MeseDi(Data data) {
  return data.Anno() * kMesiAnno + data.Mese() - 1;
}

std::string NomeMese(MeseScadenze mese) {
  if (mese == MeseDi(Data())) return "senza data";
  return std::string(kMesi.at(static_cast<std::size_t>(mese % kMesiAnno))) + " " +
         std::to_string(mese / kMesiAnno);
}

}  // namespace fenalto::duedates

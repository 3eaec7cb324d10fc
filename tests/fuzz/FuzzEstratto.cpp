// A bank statement: any bytes, any choice of columns. Each row becomes a line with a day and an
// amount, or is put aside with a reason; no two lines are taken for the same.
#include <set>
#include <string>
#include <string_view>

#include "Pretendi.h"
#include "core/archives/LettoreTabella.h"
#include "core/values/Testo.h"
#include "duedates/bank/LineeEstratto.h"

namespace {

using namespace fenalto;

std::optional<std::size_t> Scelta(unsigned bit, std::size_t colonne) {
  const std::size_t quale = bit & 3U;
  if (quale >= colonne) return std::nullopt;
  return quale;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t lunghezza) {
  if (lunghezza < 2) return 0;
  const unsigned scelte = dati[0] | (static_cast<unsigned>(dati[1]) << 8U);
  const std::string_view testo = Testo(dati + 2, lunghezza - 2);
  const auto tabella = archives::LeggiTabellaDaTesto(testo);
  if (!tabella) {
    Pretendi(Utf8Valido(tabella.Errore().messaggio));
    return 0;
  }
  const std::size_t colonne = tabella.Valore().nomi.size();
  const duedates::ColonneEstratto dove{Scelta(scelte, colonne), Scelta(scelte >> 2U, colonne),
                                       Scelta(scelte >> 4U, colonne), Scelta(scelte >> 6U, colonne),
                                       Scelta(scelte >> 8U, colonne)};
  if (!dove.Manca().empty()) return 0;
  const duedates::LineeEstratto lette = duedates::LeggiLinee(tabella.Valore(), dove);
  Pretendi(lette.linee.size() + lette.scartate.size() == tabella.Valore().righe.size());
  std::set<std::string> chiavi;
  for (const auto& linea : lette.linee) {
    Pretendi(!linea.data.Nulla() && !linea.importo.Zero() && linea.linea > 1);
    Pretendi(chiavi.insert(linea.chiave).second && Utf8Valido(linea.descrizione));
  }
  for (const auto& riga : lette.scartate) Pretendi(!riga.motivo.empty() && Utf8Valido(riga.motivo));
  return 0;
}

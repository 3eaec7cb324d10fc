// A page model: any bytes. What is refused says where; what is taken keeps on the page all that it
// places, and prints.
#include <string_view>

#include "Pretendi.h"
#include "core/reports/ModelloStampa.h"
#include "core/reports/Sagoma.h"
#include "core/values/Testo.h"

namespace {

void ProvaModello(std::string_view testo) {
  const auto letto = fenalto::reports::ModelloStampa::DaTesto(testo, "prova.mod");
  if (!letto) {
    Pretendi(letto.Errore().messaggio.find("«prova.mod»") != std::string::npos);
    return;
  }
  const fenalto::reports::ModelloStampa& m = letto.Valore();
  Pretendi(m.InizioCorpo() + 2 * m.AltezzaRiga() <= m.FineCorpo());
  Pretendi(m.FineCorpo() <= m.Formato().altezza);
  const auto [da, a] = m.LarghezzaCorpo();
  Pretendi(0 <= da && da < a && a <= m.Formato().larghezza);
  for (const auto& fisso : m.Fissi())
    if (const auto* r = std::get_if<fenalto::reports::Riquadro>(&fisso))
      Pretendi(r->x + r->larghezza <= m.Formato().larghezza &&
               r->y + r->altezza <= m.Formato().altezza);
}

void ProvaSagoma(std::string_view testo) {
  for (const bool euro : {true, false}) {
    const fenalto::reports::Sagoma sagoma(fenalto::reports::PictureImporto(testo, euro));
    const std::vector<fenalto::Valore> campi(
        sagoma.Campi(), fenalto::Valore(fenalto::Importo::DaDecimillesimi(-12'345'678)));
    const std::string riga = sagoma.Riempi(campi);
    Pretendi(fenalto::Utf8Valido(riga));
    Pretendi(fenalto::LunghezzaTesto(riga) == sagoma.Larghezza());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
  const std::string_view testo = Testo(dati, quanti);
  ProvaModello(testo);
  ProvaSagoma(testo);
  return 0;
}

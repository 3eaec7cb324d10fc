#include "core/reports/Pagina.h"

#include <string_view>

namespace fenalto::reports {

namespace {

void Sostituisci(std::string& testo, std::string_view numero) {
  const std::string_view segno = kSegnoPagineTotali;
  for (std::size_t i = testo.find(segno); i != std::string::npos;
       i = testo.find(segno, i + numero.size()))
    testo.replace(i, segno.size(), numero);
}

}  // namespace

void RisolviPagineTotali(Pagina& pagina, int totale) {
  const std::string numero = totale > 0 ? std::to_string(totale) : std::string();
  for (Elemento& elemento : pagina.elementi) {
    if (auto* scritta = std::get_if<Scritta>(&elemento)) Sostituisci(scritta->testo, numero);
    if (auto* riga = std::get_if<RigaFissa>(&elemento)) Sostituisci(riga->testo, numero);
  }
}

}  // namespace fenalto::reports

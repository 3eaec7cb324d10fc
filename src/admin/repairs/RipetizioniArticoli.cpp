#include "admin/repairs/RipetizioniArticoli.h"

#include <utility>

namespace fenalto::admin {

namespace {

constexpr const char* kDiversi = "DIVERSI";
constexpr const char* kRighe =
    "select Articoli.ID, Articoli.NumDoc, Articoli.CFP, Articoli.Conto, Articoli.CfpA, "
    "Articoli.ContoA, Movimenti.CFP, Movimenti.Conto, Movimenti.ImpoDare, Movimenti.ImpoAvere from "
    "Articoli inner join Movimenti on (Articoli.Anno = Movimenti.Anno) and (Articoli.NumDoc = "
    "Movimenti.NumDoc) where Articoli.Riva='' order by Articoli.Anno, Articoli.NumDoc, "
    "Movimenti.Posi";

/// Takes another row of the side.
void Vedi(LatoArticolo& lato, const LatoArticolo& riga, Importo importo) {
  if (importo.Zero() || lato.conto == kDiversi || lato == riga) return;
  lato = lato.conto.empty() ? riga : LatoArticolo{"", kDiversi};
}

}  // namespace

std::vector<TestataDaRifare> TestateDaRifare(Archivio& tessarc,
                                             const std::function<bool()>& passo) {
  std::vector<TestataDaRifare> daRifare;
  TestataDaRifare una;
  std::pair<LatoArticolo, LatoArticolo> scritta;
  const auto chiudi = [&] {
    if (una.id != 0 && scritta != std::pair(una.dare, una.avere)) daRifare.push_back(una);
  };
  for (Rs rs = tessarc.Recordset(kRighe); !rs.Eof(); rs.MoveNext()) {
    const auto lato = [&rs](std::size_t cfp) {
      return LatoArticolo{rs.Fields(cfp).Testo(), rs.Fields(cfp + 1).Testo()};
    };
    if (const std::int64_t id = rs.Fields(0).Intero(); id != una.id) {
      chiudi();
      if (!passo()) return {};
      una = {id, rs.Fields(1).Intero(), {}, {}};
      scritta = {lato(2), lato(4)};
    }
    Vedi(una.dare, lato(6), rs.Fields(8).Importo());
    Vedi(una.avere, lato(6), rs.Fields(9).Importo());
  }
  chiudi();
  return daRifare;
}

}  // namespace fenalto::admin

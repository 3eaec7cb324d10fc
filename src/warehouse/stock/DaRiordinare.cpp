#include "warehouse/stock/DaRiordinare.h"

#include <algorithm>

#include "core/sql/Criterio.h"
#include "core/values/Aritmetica.h"
#include "core/values/Testo.h"
#include "warehouse/stock/Esistenza.h"

namespace fenalto::warehouse {
namespace {

constexpr std::int64_t kOgniRiordino = 500;

void AggiungiFornitore(SerieCodici& fornitori, VoceRiordino& voce) {
  if (!fornitori.Al(voce.prodotto)) return;
  const Rs& rs = fornitori.Riga();
  voce.fornitore = rs.Fields(1).Testo();
  voce.codPrFor = rs.Fields(2).Testo();
  voce.descrOrdine = rs.Fields(3).Testo();
  voce.costo = PrezzoNetto(rs.Fields(4).Importo(), rs.Fields(5).Importo(), rs.Fields(6).Importo(),
                           rs.Fields(7).Importo());
  voce.nomeFornitore = NzStr(rs.Fields(8));
}

bool Prima(const VoceRiordino& a, const VoceRiordino& b) {
  const int fornitore = ConfrontaTesto(a.fornitore, b.fornitore);
  return fornitore != 0 ? fornitore < 0 : ConfrontaTesto(a.prodotto, b.prodotto) < 0;
}

}  // namespace

std::optional<std::vector<VoceRiordino>> DaRiordinare(Ambiente& ambiente,
                                                      const SceltaProdotti& scelta) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const std::string condizione = CondizioneProdotti(scelta) + " AND CodiciRiga.FuoriUso=False";
  const auto avanzamento = ambiente.Dialogo().Avvia(
      "Prodotti da riordinare",
      tessarc.Singolo("SELECT Count(*) FROM CodiciRiga WHERE " + condizione).Intero());
  EsistenzeInSerie esistenze(ambiente);
  SerieCodici fornitori(tessarc.Recordset(
      "SELECT prodottiFor_r.Cod, prodottiFor_r.Fornitore, prodottiFor_r.codprfor, "
      "prodottiFor_r.Descrizione, prodottiFor_r.Prezzo, prodottiFor_r.Sc1, prodottiFor_r.Sc2, "
      "prodottiFor_r.Sc3, ContiClientiFornitori.Descrizione FROM prodottiFor_r LEFT JOIN "
      "ContiClientiFornitori ON (prodottiFor_r.Fornitore=ContiClientiFornitori.Cod AND "
      "ContiClientiFornitori.CFP='F') ORDER BY prodottiFor_r.Cod, prodottiFor_r.Posi"));
  std::vector<VoceRiordino> voci;
  std::int64_t visti = 0;
  Rs rs =
      tessarc.Recordset("SELECT Cod, Descrizione, um, Scorta, QMinRiordino FROM CodiciRiga WHERE " +
                        condizione + " ORDER BY Cod");
  for (; !rs.Eof(); rs.MoveNext()) {
    if (++visti % kOgniRiordino == 0 && !avanzamento->Avanza(visti)) return std::nullopt;
    VoceRiordino voce;
    voce.prodotto = rs.Fields(0).Testo();
    voce.scorta = rs.Fields(3).Importo();
    voce.disponibile = esistenze.Di(voce.prodotto).disponibile;
    if (voce.disponibile >= voce.scorta) continue;
    const std::string descrizione = rs.Fields(1).Testo();
    voce.descrizione = descrizione.substr(0, descrizione.find('\n'));
    voce.um = rs.Fields(2).Testo();
    voce.qMinRiordino = rs.Fields(4).Importo();
    voce.daOrdinare = std::max(voce.scorta - voce.disponibile, voce.qMinRiordino);
    AggiungiFornitore(fornitori, voce);
    voci.push_back(std::move(voce));
  }
  std::ranges::sort(voci, Prima);
  return voci;
}

}  // namespace fenalto::warehouse

#include "documents/carryover/PianoTrasporto.h"

#include "core/sql/Criterio.h"
#include "warehouse/stock/Costi.h"
#include "warehouse/stock/Esistenza.h"

namespace fenalto::documents {
namespace {

constexpr std::int64_t kOgni = 500;  // products between two signs of life

Importo ValoreScelto(ValoreTrasporto valore, const warehouse::Costi& costi, Importo digitato) {
  switch (valore) {
    case ValoreTrasporto::CostoMedio:
      return costi.medio;
    case ValoreTrasporto::CostoDigitato:
      return digitato;
    case ValoreTrasporto::CostoUltimo:
      break;
  }
  return costi.ultimo;
}

}  // namespace

std::optional<std::vector<VoceTrasporto>> PianoTrasporto(Ambiente& ambiente,
                                                         ValoreTrasporto valore) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const auto avanzamento = ambiente.Dialogo().Avvia(
      "Lettura esistenze", tessarc.Singolo("SELECT Count(*) FROM CodiciRiga").Intero());
  warehouse::EsistenzePerMagazzino esistenze(ambiente);
  warehouse::CostiInSerie costi(ambiente);
  std::vector<VoceTrasporto> voci;
  std::int64_t visti = 0;
  Rs rs = tessarc.Recordset(
      "SELECT Cod, Descrizione, um, Conto, CodIva, CostoDigitato FROM CodiciRiga ORDER BY Cod");
  for (; !rs.Eof(); rs.MoveNext()) {
    if (++visti % kOgni == 0 && !avanzamento->Avanza(visti)) return std::nullopt;
    VoceTrasporto voce;
    voce.prodotto = rs.Fields(0).Testo();
    const auto sue = esistenze.Di(voce.prodotto);
    if (sue.empty()) continue;
    voce.descrizione = rs.Fields(1).Testo();
    voce.um = rs.Fields(2).Testo();
    voce.conto = rs.Fields(3).Testo();
    voce.codIva = rs.Fields(4).Testo();
    const warehouse::Costi suoi = costi.Di(voce.prodotto);
    voce.prezzo = ValoreScelto(valore, suoi, rs.Fields(5).Importo());
    bool riportato = false;
    for (const auto& una : sue) {
      if (una.esistenza.Zero()) continue;
      voce.mag = una.mag;
      voce.quantita = una.esistenza;
      voci.push_back(voce);
      riportato = true;
    }
    if (riportato || suoi.ultimo.Zero()) continue;
    voce.mag = sue.front().mag;
    voce.quantita = Importo();
    if (voce.prezzo.Zero()) voce.prezzo = suoi.ultimo;
    voci.push_back(std::move(voce));
  }
  return voci;
}

std::string ImprontaEsistenze(Ambiente& ambiente) {
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  std::string impronta;
  const auto aggiungi = [&](const std::string& testo) {
    const Rs rs = tessarc.Recordset(testo);
    for (std::size_t i = 0; i < rs.Colonne().size(); ++i) {
      impronta += rs.Fields(i).Neutro() + "|";
    }
  };
  // Sums tell a change of quantity, price or warehouse, Max(Num) a row deleted and written again.
  aggiungi(
      "SELECT Count(*), Max(Num), Sum(Quantita), Sum(Prezzo), Sum(IIf(CS='C',Quantita,0)), "
      "Sum(IIf(Mag='',Quantita,0)) FROM FattureCli_r WHERE " +
      sql::Criterio("Anno", "=", ambiente.Anno()));
  aggiungi("SELECT Count(*), Sum(CostoDigitato), Max(Cod) FROM CodiciRiga");
  return impronta;
}

}  // namespace fenalto::documents

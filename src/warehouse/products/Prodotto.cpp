#include "warehouse/products/Prodotto.h"

#include "core/records/RigheInTabella.h"
#include "core/sql/Criterio.h"
#include "core/values/Testo.h"

namespace fenalto::warehouse {
namespace {

using records::Campo;

constexpr records::CampoRiga<Prodotto> kCampiProdotto[] = {
    Campo<&Prodotto::id>("ID"),
    Campo<&Prodotto::cod>("Cod"),
    Campo<&Prodotto::descrizione>("Descrizione"),
    Campo<&Prodotto::descrizione1>("Descrizione1"),
    Campo<&Prodotto::descrizione2>("Descrizione2"),
    Campo<&Prodotto::um>("um"),
    Campo<&Prodotto::uma>("uma"),
    Campo<&Prodotto::conversioneA>("ConversioneA"),
    Campo<&Prodotto::barcode>("Barcode"),
    Campo<&Prodotto::prezzo>("Prezzo"),
    Campo<&Prodotto::sc>("Sc"),
    Campo<&Prodotto::prezzo2>("Prezzo2"),
    Campo<&Prodotto::sc2>("Sc2"),
    Campo<&Prodotto::prezzo3>("Prezzo3"),
    Campo<&Prodotto::sc3>("Sc3"),
    Campo<&Prodotto::prezzoIva>("PrezzoIva"),
    Campo<&Prodotto::ricarico>("Ricarico"),
    Campo<&Prodotto::prezzoCampagna>("PrezzoCampagna"),
    Campo<&Prodotto::scCampagna>("ScCampagna"),
    Campo<&Prodotto::validDal>("ValidDal"),
    Campo<&Prodotto::validAl>("ValidAl"),
    Campo<&Prodotto::dtAggPrezzi>("DtAggPrezzi"),
    Campo<&Prodotto::costoDigitato>("CostoDigitato"),
    Campo<&Prodotto::codIva>("CodIva"),
    Campo<&Prodotto::conto>("Conto"),
    Campo<&Prodotto::prov>("Prov"),
    Campo<&Prodotto::categoriaMag>("CategoriaMag"),
    Campo<&Prodotto::categoriaMag2>("CategoriaMag2"),
    Campo<&Prodotto::gruppoMag>("GruppoMag"),
    Campo<&Prodotto::gruppoMag2>("GruppoMag2"),
    Campo<&Prodotto::qMinRiordino>("QMinRiordino"),
    Campo<&Prodotto::scorta>("Scorta"),
    Campo<&Prodotto::posMag>("PosMag"),
    Campo<&Prodotto::ggScad>("ggScad"),
    Campo<&Prodotto::fileDescrizione>("FileDescrizione"),
    Campo<&Prodotto::fileImmagine>("FileImmagine"),
    Campo<&Prodotto::fuoriUso>("FuoriUso")};

constexpr records::CampoRiga<FornitoreProdotto> kCampiFornitore[] = {
    Campo<&FornitoreProdotto::posi>("Posi"),
    Campo<&FornitoreProdotto::fornitore>("Fornitore"),
    Campo<&FornitoreProdotto::codPrFor>("codprfor"),
    Campo<&FornitoreProdotto::descrizione>("Descrizione"),
    Campo<&FornitoreProdotto::prezzo>("Prezzo"),
    Campo<&FornitoreProdotto::sc1>("Sc1"),
    Campo<&FornitoreProdotto::sc2>("Sc2"),
    Campo<&FornitoreProdotto::sc3>("Sc3")};

}  // namespace

std::span<const records::CampoRiga<Prodotto>> CampiProdotto() {
  return kCampiProdotto;
}

std::span<const records::CampoRiga<FornitoreProdotto>> CampiFornitoreProdotto() {
  return kCampiFornitore;
}

std::optional<Prodotto> LeggiProdotto(Ambiente& ambiente, const std::string& codice) {
  if (codice.empty()) return std::nullopt;
  const Rs rs = ambiente.ArchivioDi("tessarc").Recordset("SELECT * FROM CodiciRiga WHERE " +
                                                         sql::Criterio("Cod", "=", codice));
  if (rs.Eof()) return std::nullopt;
  return records::LeggiRiga(rs, CampiProdotto());
}

std::optional<std::string> TrovaProdotto(Ambiente& ambiente, const std::string& letto) {
  const std::string cercato(Rifila(letto));
  if (cercato.empty()) return std::nullopt;
  Archivio& tessarc = ambiente.ArchivioDi("tessarc");
  const Valore codice =
      tessarc.Singolo("SELECT Cod FROM CodiciRiga WHERE " + sql::Criterio("Cod", "=", cercato));
  if (!codice.Nullo()) return codice.Testo();
  // False comes after True where truth is -1: those in use are asked for first.
  for (const char* uso : {"False", "True"}) {
    const Valore primo =
        tessarc.Singolo("SELECT Min(Cod) FROM CodiciRiga WHERE " +
                        sql::Criterio("Barcode", "=", cercato) + " AND FuoriUso=" + uso);
    if (!primo.Nullo()) return primo.Testo();
  }
  return std::nullopt;
}

std::optional<FornitoreProdotto> LeggiFornitoreProdotto(Ambiente& ambiente,
                                                        const std::string& prodotto,
                                                        const std::string& fornitore) {
  if (prodotto.empty() || fornitore.empty()) return std::nullopt;
  const Rs rs = ambiente.ArchivioDi("tessarc").Recordset(
      "SELECT * FROM prodottiFor_r WHERE " + sql::Criterio("Fornitore", "=", fornitore) + " AND " +
      sql::Criterio("Cod", "=", prodotto) + " ORDER BY Posi");
  if (rs.Eof()) return std::nullopt;
  return records::LeggiRiga(rs, CampiFornitoreProdotto());
}

}  // namespace fenalto::warehouse

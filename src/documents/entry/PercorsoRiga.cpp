#include "documents/entry/PercorsoRiga.h"

#include "core/archives/FonteCodici.h"
#include "core/values/Testo.h"
#include "warehouse/products/Prodotto.h"

namespace fenalto::documents {
namespace {

/// A load is typed from the supplier's paper, price by price. What goes out has its price from the
/// archives; it is asked where there is none and somebody will pay it.
bool PrezzoDaDigitare(FattureCli& documento) {
  const records::StatoCampo stato = documento.StatoRiga("Prezzo");
  if (!stato.visibile || !stato.attivo) return false;
  const TipoDocumento& tipo = documento.Tipo();
  if (tipo.cs == "C") return !tipo.noCosti;
  const bool pagata = tipo.Fatturazione() || tipo.Scontrino() ||
                      (tipo.Bolla() && documento.Testa().Leggi("Fatturo").Booleano());
  return pagata && documento.Riga().Leggi("Prezzo").Importo().Zero();
}

}  // namespace

bool NelPercorso(std::string_view campo) {
  return UgualeTesto(campo, "CodiceRiga") || UgualeTesto(campo, "Quantita") ||
         UgualeTesto(campo, "Prezzo");
}

std::string DopoCampoRiga(FattureCli& documento, std::string_view campo) {
  if (UgualeTesto(campo, "CodiceRiga")) {
    return documento.Riga().Testo("CodiceRiga").empty() ? "Descrizione" : "Quantita";
  }
  return UgualeTesto(campo, "Quantita") && PrezzoDaDigitare(documento) ? "Prezzo" : "";
}

GenereLetto CheCosaELetto(Ambiente& ambiente, const std::string& letto) {
  if (const auto codice = warehouse::TrovaProdotto(ambiente, letto)) {
    return UgualeTesto(*codice, letto) ? GenereLetto::Codice : GenereLetto::Barcode;
  }
  switch (archives::Fonte(ambiente, "prodotti")->Cerca(letto, 2).size()) {
    case 0:
      return GenereLetto::Niente;
    case 1:
      return GenereLetto::Parole;
    default:
      return GenereLetto::PiuProdotti;
  }
}

}  // namespace fenalto::documents

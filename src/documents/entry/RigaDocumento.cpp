#include "documents/entry/RigaDocumento.h"

namespace fenalto::documents {
namespace {

using R = RigaDocumento;
using records::Campo;
using records::CampoRiga;

constexpr CampoRiga<R> kForma[] = {Campo<&R::posi>("Posi"),
                                   Campo<&R::codiceRiga>("CodiceRiga"),
                                   Campo<&R::codPrCli>("CodPrCli"),
                                   Campo<&R::descrizione>("Descrizione"),
                                   Campo<&R::um>("um"),
                                   Campo<&R::quantita>("Quantita"),
                                   Campo<&R::prezzo>("Prezzo"),
                                   Campo<&R::sc1>("Sc1"),
                                   Campo<&R::sc2>("Sc2"),
                                   Campo<&R::sc3>("Sc3"),
                                   Campo<&R::importo>("Importo"),
                                   Campo<&R::conto>("Conto"),
                                   Campo<&R::codIva>("CodIva"),
                                   Campo<&R::costo>("Costo"),
                                   Campo<&R::prov>("Prov"),
                                   Campo<&R::quantitaA>("QuantitaA"),
                                   Campo<&R::prezzoA>("PrezzoA"),
                                   Campo<&R::lotto>("Lottox"),
                                   Campo<&R::dtScad>("DtScad"),
                                   Campo<&R::campo1>("Campo1"),
                                   Campo<&R::campo2>("Campo2")};

constexpr CampoRiga<R> kTabella[] = {Campo<&R::posi>("Posi"),
                                     Campo<&R::codiceRiga>("CodiceRiga"),
                                     Campo<&R::codPrCli>("CodPrCli"),
                                     Campo<&R::descrizione>("Descrizione"),
                                     Campo<&R::um>("um"),
                                     Campo<&R::quantita>("Quantita"),
                                     Campo<&R::prezzo>("Prezzo"),
                                     Campo<&R::sc1>("Sc1"),
                                     Campo<&R::sc2>("Sc2"),
                                     Campo<&R::sc3>("Sc3"),
                                     Campo<&R::importo>("Importo"),
                                     Campo<&R::conto>("Conto"),
                                     Campo<&R::codIva>("CodIva"),
                                     Campo<&R::costo>("Costo"),
                                     Campo<&R::prov>("Prov"),
                                     Campo<&R::ordine>("Ordine"),
                                     Campo<&R::posiOrdine>("PosiOrdine"),
                                     Campo<&R::ordineSaldato>("OrdineSaldato"),
                                     Campo<&R::commessa>("Commessa"),
                                     Campo<&R::posiCommessa>("PosiCommessa"),
                                     Campo<&R::ut>("Ut"),
                                     Campo<&R::quantitaA>("QuantitaA"),
                                     Campo<&R::prezzoA>("PrezzoA"),
                                     Campo<&R::lotto>("Lotto"),
                                     Campo<&R::dtScad>("DtScad"),
                                     Campo<&R::nl1>("NL1"),
                                     Campo<&R::nl2>("NL2"),
                                     Campo<&R::nl3>("NL3"),
                                     Campo<&R::campo1>("Campo1"),
                                     Campo<&R::campo2>("Campo2")};

}  // namespace

std::span<const CampoRiga<RigaDocumento>> CampiRigaForma() {
  return kForma;
}

std::span<const CampoRiga<RigaDocumento>> CampiRigaTabella() {
  return kTabella;
}

}  // namespace fenalto::documents

#include "vat/postings/ImpostaImportoRiga.h"

#include "vat/codes/TipiRegistro.h"

namespace fenalto::vat {

void ImpostaImportoRiga(GenereRigaIva genere, Importo importo, std::string_view tipoRegistro,
                        bool inverte, Importo& dare, Importo& avere) {
  LatoImporto lato = LatoImposta(tipoRegistro);
  if (lato == LatoImporto::Nessuno) return;
  if (genere == GenereRigaIva::CliFor) lato = Opposto(lato);
  if (inverte && importo.Negativo()) {
    lato = Opposto(lato);
    importo = -importo;
  }
  dare = lato == LatoImporto::Dare ? importo : Importo();
  avere = lato == LatoImporto::Avere ? importo : Importo();
}

LatiRiga LatiDiRiga(GenereRigaIva genere, Importo importo, std::string_view tipoRegistro,
                    bool inverte) {
  LatiRiga lati;
  ImpostaImportoRiga(genere, importo, tipoRegistro, inverte, lati.dare, lati.avere);
  return lati;
}

}  // namespace fenalto::vat

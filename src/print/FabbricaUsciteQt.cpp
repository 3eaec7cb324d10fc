#include "print/FabbricaUsciteQt.h"

#include <QPointer>

#include "print/Avanzamenti.h"
#include "print/UscitaAnteprima.h"
#include "print/UscitaPdf.h"
#include "print/UscitaStampante.h"

namespace fenalto::print {

FabbricaUsciteQt::FabbricaUsciteQt(Dialoghi& dialoghi, QWidget* sopra)
    : QObject(sopra), dialoghi_(dialoghi), sopra_(sopra) {}

std::unique_ptr<reports::Uscita> FabbricaUsciteQt::Crea(const SceltaUscita& scelta,
                                                        const std::string& rapporto) {
  switch (scelta.destinazione) {
    case Destinazione::Anteprima:
      return std::make_unique<UscitaAnteprima>(
          rapporto, dialoghi_, sopra_,
          [fabbrica = QPointer<FabbricaUsciteQt>(this)](const Rinvio& rinvio) {
            if (fabbrica) emit fabbrica->RinvioScelto(rinvio);
          });
    case Destinazione::Stampante: {
      auto uscita = std::make_unique<UscitaStampante>(
          [sopra = QPointer<QWidget>(sopra_)] { return ScegliStampante(sopra); },
          AvanzaCon(dialoghi_));
      uscita->Titolo(rapporto);
      return uscita;
    }
    case Destinazione::Pdf: {
      auto uscita = std::make_unique<UscitaPdf>(scelta.file, AvanzaCon(dialoghi_));
      uscita->Titolo(rapporto);
      return uscita;
    }
    case Destinazione::Testo:
      return std::make_unique<reports::UscitaTesto>(scelta.file);
    case Destinazione::Xlsx:
    case Destinazione::Csv:
      break;  // spreadsheets are written from a grid, not from pages
  }
  return nullptr;
}

}  // namespace fenalto::print

#include "screens/documents/entry/TotaliDocumento.h"

#include <QHBoxLayout>
#include <QLabel>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/lists/PiedeGriglia.h"
#include "screens/common/look/Misure.h"
#include "screens/documents/entry/Figure.h"

namespace fenalto::screens {

TotaliDocumento::TotaliDocumento(documents::FattureCli& documento, int moneta, int decQ,
                                 QWidget* genitore)
    : QWidget(genitore),
      documento_(documento),
      moneta_(moneta),
      decQ_(decQ),
      fattura_(new QWidget),
      totImponibile_(Figura("TotImponibile")),
      totIva_(Figura("TotIva")),
      totFat_(Figura("TotFat")),
      guadagno_(new QWidget),
      margine_(Figura("Margine")),
      totQuantita_(Figura("TotQuantita")),
      totRighe_(Figura("TotRighe")) {
  fattura_->setObjectName(QStringLiteral("RiquadroTotali"));
  InGrassetto(*totFat_);
  auto& fattura = LineaDiFigure(*fattura_);
  AggiungiFigura(fattura, tr("Imponibile"), totImponibile_);
  AggiungiFigura(fattura, tr("IVA"), totIva_);
  AggiungiFigura(fattura, tr("Totale"), totFat_);
  AggiungiFigura(LineaDiFigure(*guadagno_), tr("Margine"), margine_);
  auto& linea = LineaDiFigure(*this);
  linea.addWidget(fattura_);
  linea.addSpacing(Misura(Passo::Gruppo));
  linea.addWidget(guadagno_);
}

QWidget* TotaliDocumento::CreaPiede(Griglia& griglia, int colonnaQuantita, int colonnaImporto) {
  auto* piede = new PiedeGriglia(griglia, tr("Totali"));
  totQuantita_->setAccessibleName(tr("Totale delle quantità"));
  totRighe_->setAccessibleName(tr("Totale delle righe"));
  piede->Metti(colonnaQuantita, totQuantita_);
  piede->Metti(colonnaImporto, totRighe_);
  return piede;
}

void TotaliDocumento::Mostra() {
  const documents::TotaliVivi totali = documento_.Totali();
  const auto scrivi = [](QLabel* dove, Importo importo, int decimali) {
    dove->setText(Qs(ScriviImporto(importo, decimali)));
  };
  scrivi(totImponibile_, totali.totImponibile, moneta_);
  scrivi(totIva_, totali.totIva, moneta_);
  scrivi(totFat_, totali.totFat, moneta_);
  scrivi(totQuantita_, totali.totQuantita, decQ_);
  scrivi(totRighe_, totali.totRighe, moneta_);
  fattura_->setVisible(documento_.StatoTesta("RiquadroTotali").visibile);
  const auto margine = documento_.Margine();
  guadagno_->setVisible(margine.has_value());
  if (margine) margine_->setText(TestoMargine(*margine, documento_.MarginePerc(), moneta_));
}

}  // namespace fenalto::screens

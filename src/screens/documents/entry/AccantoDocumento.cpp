#include "screens/documents/entry/AccantoDocumento.h"

#include <QHBoxLayout>
#include <QLabel>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"
#include "screens/documents/entry/Figure.h"
#include "warehouse/stock/Decimali.h"

namespace fenalto::screens {

AccantoDocumento::AccantoDocumento(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore),
      decQ_(warehouse::DecimaliQuantita(finestre.Sessione())),
      decP_(warehouse::DecimaliPrezzo(finestre.Sessione())),
      moneta_(finestre.Sessione().Euro() ? 2 : 0),
      prodotto_(new QWidget),
      esistenza_(Figura("Esistenza")),
      impegnato_(Figura("Impegnato")),
      disponibile_(Figura("Disponibile")),
      ultimoCosto_(Figura("UltimoCosto")),
      guadagno_(new QWidget),
      margine_(Figura("MargineRiga")) {
  InGrassetto(*esistenza_);
  auto& figure = LineaDiFigure(*prodotto_);
  AggiungiFigura(figure, tr("esistenza"), esistenza_);
  AggiungiFigura(figure, tr("imp."), impegnato_);
  AggiungiFigura(figure, tr("disp."), disponibile_);
  AggiungiFigura(figure, tr("costo"), ultimoCosto_);
  AggiungiFigura(LineaDiFigure(*guadagno_), tr("margine"), margine_);
  impegnato_->setToolTip(tr("ordinato dai clienti e non ancora consegnato"));
  disponibile_->setToolTip(tr("esistenza, più l'ordinato ai fornitori, meno l'impegnato"));
  ultimoCosto_->setToolTip(tr("ultimo costo, dai carichi dell'anno"));
  auto& linea = LineaDiFigure(*this);
  linea.addSpacing(Misura(Passo::Gruppo));
  linea.addWidget(prodotto_);
  linea.addWidget(guadagno_);
  linea.addStretch(1);
}

void AccantoDocumento::Mostra(const std::optional<documents::AccantoRiga>& accanto) {
  prodotto_->setVisible(accanto.has_value());
  guadagno_->setVisible(accanto && accanto->margine);
  if (!accanto) return;
  const auto scrivi = [](QLabel* dove, Importo importo, int decimali) {
    dove->setText(Qs(ScriviImporto(importo, decimali)));
  };
  scrivi(esistenza_, accanto->esistenza.esistenza, decQ_);
  scrivi(impegnato_, accanto->esistenza.impegnato, decQ_);
  scrivi(disponibile_, accanto->esistenza.disponibile, decQ_);
  scrivi(ultimoCosto_, accanto->costi.ultimo, decP_);
  if (accanto->margine) {
    margine_->setText(TestoMargine(*accanto->margine, accanto->marginePerc, moneta_));
  }
}

}  // namespace fenalto::screens

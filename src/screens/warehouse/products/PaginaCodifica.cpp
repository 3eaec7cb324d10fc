#include "screens/warehouse/products/PaginaCodifica.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "screens/common/fields/Disposizione.h"
#include "warehouse/products/CodificaProdotti.h"

namespace fenalto::screens {
namespace {

QString TestoCodifica(int cifre) {
  switch (cifre) {
    case 4:
      return QStringLiteral("0001- 9999 (fino a 9999 prodotti)");
    case 5:
      return QStringLiteral("00001- 99999  (fino a 99.999 prodotti)");
    case 6:
      return QStringLiteral("000001- 999999  (fino a 999.999 prodotti)");
    default:
      return QStringLiteral("non applico codifica automatica");
  }
}

}  // namespace

PaginaCodifica::PaginaCodifica(Finestre& finestre, QWidget* genitore)
    : QWidget(genitore), finestre_(finestre), cifre_(new QButtonGroup(this)) {
  auto* riquadro = new QGroupBox(tr("Codifica automatica dei prodotti"));
  auto* scelte = new QVBoxLayout(riquadro);
  for (const int cifre : warehouse::kCifreCodifica) {
    auto* scelta = new QRadioButton(TestoCodifica(cifre));
    scelta->setObjectName(QStringLiteral("OptCodifica%1").arg(cifre));
    cifre_->addButton(scelta, cifre);
    scelte->addWidget(scelta);
  }
  auto* conferma = Pulsante(QStringLiteral("ConfermaCodifica"), tr("Conferma codifica"));
  scelte->addWidget(conferma, 0, Qt::AlignLeft);
  auto* colonna = new QVBoxLayout(this);
  colonna->addWidget(riquadro);
  colonna->addStretch(1);
  AssegnaMnemoniche({conferma});
  connect(conferma, &QPushButton::clicked, this, &PaginaCodifica::Conferma);
  Mostra();
}

void PaginaCodifica::showEvent(QShowEvent* evento) {
  QWidget::showEvent(evento);
  Mostra();
}

void PaginaCodifica::Mostra() {
  cifre_->button(warehouse::CifreCodifica(finestre_.Sessione()))->setChecked(true);
}

void PaginaCodifica::Conferma() {
  if (warehouse::ImpostaCodifica(finestre_.Sessione(), cifre_->checkedId())) {
    finestre_.Sessione().Dialogo().Annuncia("codifica dei prodotti impostata");
  }
  Mostra();
}

}  // namespace fenalto::screens

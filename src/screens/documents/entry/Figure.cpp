#include "screens/documents/entry/Figure.h"

#include <QHBoxLayout>
#include <QLabel>

#include "core/values/FormatoImporto.h"
#include "screens/common/fields/Qs.h"
#include "screens/common/look/Misure.h"

namespace fenalto::screens {

QLabel* Figura(const char* nome) {
  auto* figura = new QLabel;
  figura->setObjectName(QString::fromLatin1(nome));
  figura->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  figura->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return figura;
}

QHBoxLayout& LineaDiFigure(QWidget& dove) {
  auto* linea = new QHBoxLayout(&dove);
  linea->setContentsMargins(0, 0, 0, 0);
  linea->setSpacing(Misura(Passo::Filo));
  return *linea;
}

void AggiungiFigura(QHBoxLayout& linea, const QString& didascalia, QLabel* figura) {
  if (linea.count() > 0) linea.addSpacing(Misura(Passo::Filo));
  linea.addWidget(new QLabel(didascalia));
  linea.addWidget(figura);
}

QString TestoMargine(Importo margine, const std::optional<Importo>& percento, int decimali) {
  QString testo = Qs(ScriviImporto(margine, decimali));
  if (percento) testo += QStringLiteral(" (%1 %)").arg(Qs(ScriviImportoFisso(*percento, 1)));
  return testo;
}

}  // namespace fenalto::screens

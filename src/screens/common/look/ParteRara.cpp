#include "screens/common/look/ParteRara.h"

#include <QApplication>

namespace fenalto::screens {

void ParteRara::Apri(bool aperta) {
  if (aperta || !isAncestorOf(QApplication::focusWidget())) setVisible(aperta);
}

}  // namespace fenalto::screens

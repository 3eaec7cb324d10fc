#include "screens/common/lists/RigaFiltri.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <algorithm>

#include "screens/common/lists/Griglia.h"

namespace fenalto::screens {

RigaFiltri::RigaFiltri(Griglia& griglia, const std::vector<std::string>& nomi) : griglia_(griglia) {
  for (std::size_t i = 0; i < nomi.size(); ++i) {
    auto* campo = new QLineEdit(this);
    campo->setObjectName(QStringLiteral("Filtro") + QString::fromStdString(nomi[i]));
    const QString colonna = griglia.Modello().Colonne()[i].titolo;
    campo->setAccessibleName(tr("Filtro di %1").arg(colonna));
    campo->setToolTip(tr("mostra solo le righe che in \"%1\" hanno questo testo").arg(colonna));
    campo->setPlaceholderText(tr("filtro"));
    connect(campo, &QLineEdit::textChanged, this, &RigaFiltri::Cambiata);
    campi_.push_back(campo);
  }
  if (!campi_.empty()) setFixedHeight(campi_.front()->sizeHint().height());
  const auto* testata = griglia.horizontalHeader();
  connect(testata, &QHeaderView::sectionResized, this, [this] { Allinea(); });
  connect(testata, &QHeaderView::geometriesChanged, this, [this] { Allinea(); });
  connect(griglia.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { Allinea(); });
}

std::vector<std::string> RigaFiltri::Testi() const {
  std::vector<std::string> testi;
  for (const auto* campo : campi_) testi.push_back(campo->text().trimmed().toStdString());
  return testi;
}

bool RigaFiltri::Vuota() const {
  return std::all_of(campi_.begin(), campi_.end(),
                     [](const auto* campo) { return campo->text().trimmed().isEmpty(); });
}

void RigaFiltri::Svuota() {
  for (auto* campo : campi_) campo->clear();
}

void RigaFiltri::Allinea() {
  const auto* testata = griglia_.horizontalHeader();
  const int margine = griglia_.frameWidth();
  for (std::size_t i = 0; i < campi_.size(); ++i) {
    const int sezione = static_cast<int>(i);
    campi_[i]->setGeometry(margine + testata->sectionViewportPosition(sezione), 0,
                           testata->sectionSize(sezione) - 1, height());
  }
}

void RigaFiltri::resizeEvent(QResizeEvent* evento) {
  QWidget::resizeEvent(evento);
  Allinea();
}

void RigaFiltri::showEvent(QShowEvent* evento) {
  QWidget::showEvent(evento);
  Allinea();
}

}  // namespace fenalto::screens

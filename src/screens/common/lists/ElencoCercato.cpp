#include "screens/common/lists/ElencoCercato.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/common/fields/Disposizione.h"

namespace fenalto::screens {

ElencoCercato::ElencoCercato(const QString& cerca, const QString& segnaposto, Griglia* griglia,
                             std::size_t colonnaNumero, QWidget* genitore)
    : QWidget(genitore),
      cerca_(new QLineEdit),
      stato_(new QLabel),
      griglia_(griglia),
      ripresa_(new QTimer(this)),
      sopra_(new QHBoxLayout),
      colonnaNumero_(colonnaNumero) {
  cerca_->setObjectName(cerca);
  cerca_->setPlaceholderText(segnaposto);
  cerca_->setClearButtonEnabled(true);
  cerca_->installEventFilter(this);
  stato_->setObjectName(QStringLiteral("StatoRicerca"));
  ripresa_->setSingleShot(true);

  sopra_->addWidget(Didascalia(tr("Cerca"), cerca_));
  sopra_->addWidget(cerca_, 1);
  sopra_->addWidget(stato_);
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->addLayout(sopra_);
  colonna->addWidget(griglia_, 1);

  connect(griglia_, &Griglia::clicked, this,
          [this](const QModelIndex& riga) { emit Indicato(NumeroDi(riga.row())); });
  const auto scegli = [this](int riga) { emit Scelto(NumeroDi(riga)); };
  connect(griglia_, &Griglia::RigaDoppioClic, this, scegli);
  connect(griglia_, &Griglia::RigaInvio, this, scegli);
}

qint64 ElencoCercato::NumeroDi(int riga) const {
  return griglia_->Modello().Riga(riga)[colonnaNumero_].Intero();
}

bool ElencoCercato::eventFilter(QObject* oggetto, QEvent* evento) {
  // From the search line straight into what it has found.
  if (oggetto == cerca_ && evento->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Down &&
      griglia_->Modello().rowCount() > 0) {
    griglia_->setFocus();
    griglia_->VaiARiga(std::max(0, griglia_->RigaCorrente()));
    return true;
  }
  return QWidget::eventFilter(oggetto, evento);
}

}  // namespace fenalto::screens

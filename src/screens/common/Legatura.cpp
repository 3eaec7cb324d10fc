#include "screens/common/Legatura.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "screens/common/Campi.h"

namespace fenalto {
namespace {

std::string NomeDi(const QWidget* controllo) { return controllo->objectName().toStdString(); }

void SegnaErrato(QWidget* controllo, bool errato) {
  QPalette tavolozza;
  if (errato) tavolozza.setColor(QPalette::Text, QColor(200, 30, 30));
  controllo->setPalette(tavolozza);
}

}  // namespace

Legatura::Legatura(std::function<Scheda&()> scheda, Dialoghi& dialoghi, QObject* genitore)
    : QObject(genitore), scheda_(std::move(scheda)), dialoghi_(dialoghi) {}

void Legatura::Lega(QWidget* controllo) {
  controlli_.push_back(controllo);
  controllo->installEventFilter(this);
  if (auto* elenco = qobject_cast<QComboBox*>(controllo)) {
    if (elenco->lineEdit() != nullptr) elenco->lineEdit()->installEventFilter(this);
    connect(elenco, &QComboBox::activated, this, [this, elenco] { Lascia(elenco); });
  } else if (auto* casella = qobject_cast<QAbstractButton*>(controllo)) {
    connect(casella, &QAbstractButton::clicked, this, [this, casella] { Lascia(casella); });
  }
}

void Legatura::Mostra() {
  for (auto* controllo : controlli_) MostraUno(controllo);
}

void Legatura::MostraUno(QWidget* controllo) {
  const std::string campo = NomeDi(controllo);
  if (!scheda_().Ha(campo)) return;
  const Valore& valore = scheda_().Leggi(campo);
  if (auto* tipizzato = dynamic_cast<CampoValore*>(controllo)) {
    SegnaErrato(controllo, false);
    tipizzato->Mostra(valore);
  } else if (auto* elenco = qobject_cast<QComboBox*>(controllo)) {
    elenco->setCurrentText(QString::fromStdString(valore.Testo()));
  } else if (auto* casella = qobject_cast<QAbstractButton*>(controllo)) {
    casella->setChecked(valore.Booleano());
  } else if (auto* etichetta = qobject_cast<QLabel*>(controllo)) {
    etichetta->setText(valore.Tipo() == Tipo::Importo
                           ? QString::fromStdString(ScriviImporto(valore.Importo(), 2))
                           : QString::fromStdString(valore.Testo()));
  }
}

bool Legatura::Lascia(QWidget* controllo) {
  if (occupata_) return true;
  const std::string campo = NomeDi(controllo);
  if (!scheda_().Ha(campo)) return true;
  Valore nuovo;
  if (auto* tipizzato = dynamic_cast<CampoValore*>(controllo)) {
    auto letto = tipizzato->Letto();
    if (!letto) {
      occupata_ = true;
      SegnaErrato(controllo, true);
      dialoghi_.Messaggio(letto.Errore().messaggio, Icona::Avviso);
      controllo->setFocus();
      occupata_ = false;
      return false;
    }
    nuovo = letto.Valore();
  } else if (auto* elenco = qobject_cast<QComboBox*>(controllo)) {
    nuovo = Valore(elenco->currentText().toStdString());
  } else if (auto* casella = qobject_cast<QAbstractButton*>(controllo)) {
    nuovo = Valore(casella->isChecked());
  } else {
    return true;
  }
  occupata_ = true;
  const bool cambiato = !(scheda_().Leggi(campo) == nuovo) ||
                        scheda_().Leggi(campo).Neutro() != nuovo.Neutro();
  if (cambiato) scheda_().Scrivi(campo, nuovo);
  MostraUno(controllo);
  occupata_ = false;
  emit Lasciato(controllo->objectName(), cambiato);
  return true;
}

bool Legatura::Raccogli() {
  for (auto* controllo : controlli_) {
    const bool visibile = controllo->isVisible() && controllo->isEnabled();
    if (visibile && dynamic_cast<CampoValore*>(controllo) != nullptr) {
      const auto letto = dynamic_cast<CampoValore*>(controllo)->Letto();
      if ((!letto || controllo->hasFocus()) && !Lascia(controllo)) return false;
    }
  }
  return true;
}

bool Legatura::eventFilter(QObject* oggetto, QEvent* evento) {
  const bool uscita = evento->type() == QEvent::FocusOut &&
                      static_cast<QFocusEvent*>(evento)->reason() != Qt::PopupFocusReason &&
                      static_cast<QFocusEvent*>(evento)->reason() != Qt::ActiveWindowFocusReason;
  if (!uscita) return QObject::eventFilter(oggetto, evento);
  auto* controllo = qobject_cast<QWidget*>(oggetto);
  if (controllo != nullptr && !std::count(controlli_.begin(), controlli_.end(), controllo)) {
    controllo = controllo->parentWidget();  // the line edit within a combo box
  }
  if (controllo == nullptr) return false;
  // The control first finishes what leaving means to it (a code resolves itself).
  oggetto->removeEventFilter(this);
  oggetto->event(evento);
  oggetto->installEventFilter(this);
  Lascia(controllo);
  return true;
}

}  // namespace fenalto

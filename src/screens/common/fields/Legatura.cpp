#include "screens/common/fields/Legatura.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <algorithm>

#include "core/values/FormatoImporto.h"
#include "core/values/Testo.h"
#include "screens/common/fields/Campi.h"
#include "screens/common/fields/CampoCodice.h"
#include "screens/common/fields/Disposizione.h"
#include "screens/common/fields/GruppoScelta.h"

namespace fenalto::screens {
namespace {

std::string NomeDi(const QWidget* controllo) {
  return controllo->objectName().toStdString();
}

/// What is told of a text, after the caption of its field.
std::string ConNome(const QWidget* controllo, const std::string& messaggio) {
  const bool testo = qobject_cast<const CampoTesto*>(controllo) != nullptr ||
                     qobject_cast<const CampoNote*>(controllo) != nullptr ||
                     qobject_cast<const CampoCodice*>(controllo) != nullptr;
  if (!testo) return messaggio;
  const std::string nome = controllo->accessibleName().toStdString();
  return (nome.empty() ? NomeDi(controllo) : nome) + ": " + messaggio;
}

QString TestoDi(const QWidget* controllo) {
  if (const auto* note = qobject_cast<const QPlainTextEdit*>(controllo)) return note->toPlainText();
  const auto* riga = qobject_cast<const QLineEdit*>(controllo);
  return riga != nullptr ? riga->text() : QString();
}

/// Typed in since its text was last set.
bool Digitato(const QWidget* controllo) {
  if (const auto* riga = qobject_cast<const QLineEdit*>(controllo)) return riga->isModified();
  if (const auto* note = qobject_cast<const QPlainTextEdit*>(controllo)) {
    return note->document()->isModified();
  }
  const auto* elenco = qobject_cast<const QComboBox*>(controllo);
  return elenco != nullptr && elenco->lineEdit() != nullptr && elenco->lineEdit()->isModified();
}

}  // namespace

Legatura::Legatura(std::function<Scheda&()> scheda, Dialoghi& dialoghi, QObject* genitore)
    : QObject(genitore), scheda_(std::move(scheda)), dialoghi_(dialoghi) {}

void Legatura::Lega(QWidget* controllo) {
  controlli_.push_back(controllo);
  controllo->installEventFilter(this);
  const auto lascia = [this, controllo] { Lascia(controllo, true, Qt::OtherFocusReason); };
  if (auto* elenco = qobject_cast<QComboBox*>(controllo)) {
    connect(elenco, &QComboBox::activated, this, lascia);
  } else if (auto* casella = qobject_cast<QAbstractButton*>(controllo)) {
    connect(casella, &QAbstractButton::clicked, this, lascia);
  } else if (auto* codice = qobject_cast<CampoCodice*>(controllo)) {
    connect(codice, &CampoCodice::Scelto, this, lascia);
  } else if (auto* gruppo = qobject_cast<GruppoScelta*>(controllo)) {
    connect(gruppo, &GruppoScelta::Scelto, this, lascia);
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
    ColoraErrato(controllo, false);
    tipizzato->Mostra(valore);
  } else if (auto* elenco = qobject_cast<QComboBox*>(controllo)) {
    elenco->setCurrentText(QString::fromStdString(valore.Testo()));
  } else if (auto* casella = qobject_cast<QAbstractButton*>(controllo)) {
    casella->setChecked(valore.Booleano());
  } else if (auto* etichetta = qobject_cast<QLabel*>(controllo)) {
    etichetta->setText(valore.Tipo() == Tipo::Importo
                           ? QString::fromStdString(ScriviImporto(valore.Importo(), 2))
                           : QString::fromStdString(Visibile(valore.Testo())));
  }
}

bool Legatura::Rifiuta(QWidget* controllo, const std::string& messaggio) {
  occupata_ = true;
  rifiutato_ = controllo;
  testoRifiutato_ = TestoDi(controllo);
  ColoraErrato(controllo, true);
  dialoghi_.Messaggio(messaggio, Icona::Avviso);
  controllo->setFocus();
  occupata_ = false;
  return false;
}

bool Legatura::Lascia(QWidget* controllo, bool digitato, Qt::FocusReason motivo) {
  if (occupata_) return true;
  const std::string campo = NomeDi(controllo);
  if (!scheda_().Ha(campo)) return true;
  Valore nuovo;
  if (auto* tipizzato = dynamic_cast<CampoValore*>(controllo)) {
    auto letto = tipizzato->Letto();
    if (!letto) return Rifiuta(controllo, ConNome(controllo, letto.Errore().messaggio));
    nuovo = letto.Valore();
  } else if (auto* elenco = qobject_cast<QComboBox*>(controllo)) {
    nuovo = Valore(elenco->currentText().toStdString());
  } else if (auto* casella = qobject_cast<QAbstractButton*>(controllo)) {
    nuovo = Valore(casella->isChecked());
  } else {
    return true;
  }
  occupata_ = true;
  rifiutato_ = nullptr;
  const bool nuova =
      !(scheda_().Leggi(campo) == nuovo) || scheda_().Leggi(campo).Neutro() != nuovo.Neutro();
  if (nuova) scheda_().Scrivi(campo, nuovo);
  MostraUno(controllo);
  occupata_ = false;
  emit Lasciato(controllo->objectName(), nuova || digitato, motivo);
  return true;
}

bool Legatura::Raccogli() {
  for (auto* controllo : controlli_) {
    if (!controllo->isVisible() || !controllo->isEnabled()) continue;
    const auto* tipizzato = dynamic_cast<CampoValore*>(controllo);
    const bool digitato = Digitato(controllo);
    const bool illeggibile = tipizzato != nullptr && !tipizzato->Letto();
    if (illeggibile && rifiutato_ == controllo && testoRifiutato_ == TestoDi(controllo)) {
      rifiutato_ = nullptr;
      return false;
    }
    if (auto* codice = qobject_cast<CampoCodice*>(controllo); codice != nullptr && digitato) {
      codice->Risolvi();
    }
    const bool daLasciare = illeggibile || digitato;
    if (daLasciare && !Lascia(controllo, digitato, Qt::OtherFocusReason)) return false;
  }
  return true;
}

bool Legatura::Pendente() const {
  return std::any_of(controlli_.begin(), controlli_.end(), [this](const QWidget* controllo) {
    if (!Digitato(controllo) || !scheda_().Ha(NomeDi(controllo))) return false;
    if (const auto* tipizzato = dynamic_cast<const CampoValore*>(controllo)) {
      const auto letto = tipizzato->Letto();
      return !letto || letto.Valore().Neutro() != scheda_().Leggi(NomeDi(controllo)).Neutro();
    }
    return true;
  });
}

bool Legatura::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() != QEvent::FocusOut) return QObject::eventFilter(oggetto, evento);
  const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
  auto* controllo = qobject_cast<QWidget*>(oggetto);
  if (controllo == nullptr || motivo == Qt::PopupFocusReason ||
      motivo == Qt::ActiveWindowFocusReason || !controllo->isVisible() ||
      (rinuncia_ != nullptr && QApplication::focusWidget() == rinuncia_)) {
    return QObject::eventFilter(oggetto, evento);
  }
  const bool digitato = Digitato(controllo);
  // The control first finishes what leaving means to it (a code resolves itself).
  const bool prima = occupata_;
  occupata_ = true;
  oggetto->removeEventFilter(this);
  oggetto->event(evento);
  oggetto->installEventFilter(this);
  occupata_ = prima;
  Lascia(controllo, digitato, motivo);
  return true;
}

}  // namespace fenalto::screens

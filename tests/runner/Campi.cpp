#include "runner/Campi.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTabWidget>
#include <QTextDocument>
#include <QTextEdit>

#include "runner/Ricerca.h"

namespace fenalto::copione {
namespace {

QString SiNo(bool spuntato) {
  return spuntato ? QStringLiteral("si") : QStringLiteral("no");
}

QString TestoEtichetta(const QLabel& etichetta) {
  const bool ricco =
      etichetta.textFormat() == Qt::RichText ||
      (etichetta.textFormat() == Qt::AutoText && Qt::mightBeRichText(etichetta.text()));
  if (!ricco) {
    return etichetta.buddy() != nullptr ? SenzaMnemonica(etichetta.text()) : etichetta.text();
  }
  QTextDocument documento;
  documento.setHtml(etichetta.text());
  return documento.toPlainText();
}

}  // namespace

QWidget* CampoDentro(QWidget& controllo) {
  if (SiScrive(controllo)) return &controllo;
  if (controllo.focusProxy() != nullptr && SiScrive(*controllo.focusProxy())) {
    return controllo.focusProxy();
  }
  const auto righe = controllo.findChildren<QLineEdit*>();
  const bool vista = qobject_cast<QAbstractItemView*>(&controllo) != nullptr;
  return righe.size() == 1 && !vista ? righe.first() : nullptr;
}

bool SiScrive(const QWidget& controllo) {
  return qobject_cast<const QLineEdit*>(&controllo) != nullptr ||
         qobject_cast<const QComboBox*>(&controllo) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&controllo) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(&controllo) != nullptr ||
         qobject_cast<const QTextEdit*>(&controllo) != nullptr;
}

bool SolaLettura(const QWidget& controllo) {
  if (const auto* riga = qobject_cast<const QLineEdit*>(&controllo)) return riga->isReadOnly();
  if (const auto* numero = qobject_cast<const QAbstractSpinBox*>(&controllo)) {
    return numero->isReadOnly();
  }
  if (const auto* testo = qobject_cast<const QPlainTextEdit*>(&controllo)) {
    return testo->isReadOnly();
  }
  if (const auto* testo = qobject_cast<const QTextEdit*>(&controllo)) return testo->isReadOnly();
  if (const auto* elenco = qobject_cast<const QComboBox*>(&controllo)) {
    return elenco->lineEdit() != nullptr && elenco->lineEdit()->isReadOnly();
  }
  return false;
}

void SelezionaTutto(QWidget& campo) {
  if (auto* riga = qobject_cast<QLineEdit*>(&campo)) riga->selectAll();
  if (auto* numero = qobject_cast<QAbstractSpinBox*>(&campo)) numero->selectAll();
  if (auto* testo = qobject_cast<QPlainTextEdit*>(&campo)) testo->selectAll();
  if (auto* testo = qobject_cast<QTextEdit*>(&campo)) testo->selectAll();
  if (auto* elenco = qobject_cast<QComboBox*>(&campo); elenco && elenco->lineEdit()) {
    elenco->lineEdit()->selectAll();
  }
}

void VaiInFondo(QWidget& campo) {
  if (auto* elenco = qobject_cast<QComboBox*>(&campo); elenco && elenco->lineEdit()) {
    elenco->lineEdit()->end(false);
  } else if (auto* riga = campo.findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly);
             riga && qobject_cast<QAbstractSpinBox*>(&campo)) {
    riga->end(false);
  }
  if (auto* riga = qobject_cast<QLineEdit*>(&campo)) riga->end(false);
  if (auto* testo = qobject_cast<QPlainTextEdit*>(&campo)) testo->moveCursor(QTextCursor::End);
  if (auto* testo = qobject_cast<QTextEdit*>(&campo)) testo->moveCursor(QTextCursor::End);
}

std::optional<QString> TestoDi(const QWidget& controllo) {
  QString testo;
  if (const auto* pulsante = qobject_cast<const QAbstractButton*>(&controllo)) {
    testo =
        pulsante->isCheckable() ? SiNo(pulsante->isChecked()) : SenzaMnemonica(pulsante->text());
  } else if (const auto* gruppo = qobject_cast<const QGroupBox*>(&controllo)) {
    testo = gruppo->isCheckable() ? SiNo(gruppo->isChecked()) : SenzaMnemonica(gruppo->title());
  } else if (const auto* etichetta = qobject_cast<const QLabel*>(&controllo)) {
    testo = TestoEtichetta(*etichetta);
  } else if (const auto* riga = qobject_cast<const QLineEdit*>(&controllo)) {
    testo = riga->text();
  } else if (const auto* elenco = qobject_cast<const QComboBox*>(&controllo)) {
    testo = elenco->currentText();
  } else if (const auto* numero = qobject_cast<const QAbstractSpinBox*>(&controllo)) {
    testo = numero->text();
  } else if (const auto* lungo = qobject_cast<const QPlainTextEdit*>(&controllo)) {
    testo = lungo->toPlainText();
  } else if (const auto* ricco = qobject_cast<const QTextEdit*>(&controllo)) {
    testo = ricco->toPlainText();
  } else if (const auto* vista = qobject_cast<const QAbstractItemView*>(&controllo)) {
    testo = vista->currentIndex().data(Qt::DisplayRole).toString();
  } else if (const auto* schede = qobject_cast<const QTabWidget*>(&controllo)) {
    testo = SenzaMnemonica(schede->tabText(schede->currentIndex()));
  } else if (const auto* barra = qobject_cast<const QProgressBar*>(&controllo)) {
    testo = barra->text();
  } else {
    return std::nullopt;
  }
  return testo.trimmed();
}

}  // namespace fenalto::copione

#include "screens/main/DialogoAccesso.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace fenalto::screens {

DialogoAccesso::DialogoAccesso(const QString& avviso, QWidget* genitore)
    : QDialog(genitore), utente_(new QLineEdit(this)), password_(new QLineEdit(this)) {
  setObjectName(QStringLiteral("Accesso"));
  setWindowTitle(QStringLiteral("Fenalto"));
  utente_->setObjectName(QStringLiteral("Utente"));
  password_->setObjectName(QStringLiteral("Password"));
  password_->setEchoMode(QLineEdit::Password);
  auto* modulo = new QFormLayout(this);
  if (!avviso.isEmpty()) {
    auto* testo = new QLabel(avviso, this);
    testo->setWordWrap(true);
    modulo->addRow(testo);
  }
  modulo->addRow(tr("&Utente"), utente_);
  modulo->addRow(tr("&Password"), password_);
  auto* bottoni = new QDialogButtonBox(this);
  bottoni->addButton(tr("&Entra"), QDialogButtonBox::AcceptRole)->setDefault(true);
  bottoni->addButton(tr("&Annulla"), QDialogButtonBox::RejectRole);
  modulo->addRow(bottoni);
  connect(bottoni, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(bottoni, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

Dialoghi::Credenziali DialogoAccesso::Dati() const {
  return {utente_->text().trimmed().toStdString(), password_->text().toStdString()};
}

}  // namespace fenalto::screens

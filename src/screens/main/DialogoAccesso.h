// The log-in: user and password.
#pragma once

#include <QDialog>

#include "core/session/Porte.h"

class QLineEdit;

namespace fenalto::screens {

class DialogoAccesso : public QDialog {
  Q_OBJECT

 public:
  /// `avviso` says what was wrong with the last try; empty at first.
  DialogoAccesso(const QString& avviso, QWidget* genitore);
  [[nodiscard]] Dialoghi::Credenziali Dati() const;

 private:
  QLineEdit* utente_;
  QLineEdit* password_;
};

}  // namespace fenalto::screens

// Page of the VAT register's window that shows, before printing, what would stop the run and what
// it would ask about.
#pragma once

#include <QWidget>

#include "screens/vat/register/DatiRegistroIva.h"

class QAbstractButton;
class QPushButton;

namespace fenalto::screens {

class Griglia;

class PaginaControlliIva : public QWidget {
  Q_OBJECT

 public:
  PaginaControlliIva(DatiRegistroIva& dati, const QString& finestra, QWidget* genitore = nullptr);
  /// Checks the ranges and shows what was found.
  void Controlla();
  /// Forgets what was found: the ranges are others.
  void Svuota();
  [[nodiscard]] QPushButton* PulsanteVedi() { return vedi_; }

 private:
  void Vedi();

  DatiRegistroIva& dati_;
  Griglia* griglia_;
  QLabel* esito_;
  QPushButton* vedi_;
};

}  // namespace fenalto::screens

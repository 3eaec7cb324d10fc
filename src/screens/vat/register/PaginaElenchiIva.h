// Page of the VAT register's window with what was stored: the settlements of the year, their
// erasure, and the list of the deferred invoices.
#pragma once

#include <QList>
#include <QWidget>

#include "screens/vat/register/DatiRegistroIva.h"

class QAbstractButton;
class QGroupBox;

namespace fenalto::screens {

class Griglia;

class PaginaElenchiIva : public QWidget {
  Q_OBJECT

 public:
  PaginaElenchiIva(DatiRegistroIva& dati, const QString& finestra, QWidget* genitore = nullptr);
  /// Reads the stored settlements.
  void MostraChiusure();
  [[nodiscard]] const QList<QAbstractButton*>& Pulsanti() const { return pulsanti_; }

 private:
  QGroupBox* CreaChiusure(const QString& finestra);
  QGroupBox* CreaSospese();
  void StampaSospese();

  DatiRegistroIva& dati_;
  Griglia* griglia_ = nullptr;
  QList<QAbstractButton*> pulsanti_;
};

}  // namespace fenalto::screens

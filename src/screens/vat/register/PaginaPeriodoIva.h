// First page of the VAT register's window: the period, the ranges of protocols of its registers,
// what is printed, ventilation and postings.
#pragma once

#include <QWidget>
#include <memory>

#include "screens/vat/register/DatiRegistroIva.h"

class QAbstractButton;

namespace fenalto::screens {

class Griglia;

class PaginaPeriodoIva : public QWidget {
  Q_OBJECT

 public:
  PaginaPeriodoIva(DatiRegistroIva& dati, const QString& finestra, QWidget* genitore = nullptr);

  /// Takes what is typed in the ranges; false when one can't be read.
  bool Raccogli();
  /// Puts the focus where the period is typed.
  void FocoPeriodo();
  [[nodiscard]] QAbstractButton* Conferma() { return conferma_; }

 signals:
  /// Another period was confirmed, or none is any more.
  void PeriodoCambiato();
  /// The user has changed a range.
  void IntervalliCambiati();

 private:
  QWidget* CreaPeriodo(const QString& finestra);
  void CampoCambiato(const QString& campo);
  void ConfermaPeriodo();
  void Sconferma();
  void MostraRegistri();
  void CreaIntervalli();
  void RigaLasciata(const QString& campo);
  [[nodiscard]] std::vector<std::vector<Valore>> Righe() const;

  DatiRegistroIva& dati_;
  Griglia* griglia_ = nullptr;
  CampoCodice* periodo_ = nullptr;
  QAbstractButton* conferma_ = nullptr;
  QLabel* stato_ = nullptr;
  /// Ranges as fields, and their editors; made anew with each period.
  Scheda righe_;
  std::unique_ptr<Legatura> legaturaRighe_;
};

}  // namespace fenalto::screens

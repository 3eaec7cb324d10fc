// Page of the VAT register's window with the settlement on screen: what the user adds to the
// registers, the lines beside those of a year before, debit and credit of the year by period.
#pragma once

#include <QWidget>

#include "screens/vat/DatiRegistroIva.h"

class QGroupBox;

namespace fenalto {

class GraficoBarre;
class Griglia;

class PaginaLiquidazioneIva : public QWidget {
  Q_OBJECT

 public:
  PaginaLiquidazioneIva(DatiRegistroIva& dati, const QString& finestra,
                        QWidget* genitore = nullptr);
  /// Works the settlement out and shows it.
  void Calcola();
  /// Whether a field of this page bears that name.
  [[nodiscard]] bool Ha(const QString& campo) const { return findChild<QWidget*>(campo); }

 private:
  QGroupBox* CreaDati();
  void MostraRighe(const Liquidazione& liquidazione);
  void MostraAndamento(const Liquidazione& liquidazione);
  void MostraTesto(const QString& testo);

  DatiRegistroIva& dati_;
  Griglia* griglia_;
  QLabel* titolo_;
  QLabel* risultato_;
  GraficoBarre* grafico_;
};

}  // namespace fenalto

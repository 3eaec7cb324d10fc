// Page of the VAT register's window with the settlement on screen: what the user adds to the
// registers, the lines beside those of a year before, debit and credit of the year by period.
#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "screens/vat/register/DatiRegistroIva.h"

class QGroupBox;

namespace fenalto::screens {

class GraficoBarre;
class Griglia;

class PaginaLiquidazioneIva : public QWidget {
  Q_OBJECT

 public:
  PaginaLiquidazioneIva(DatiRegistroIva& dati, const QString& finestra,
                        QWidget* genitore = nullptr);
  /// Reads the registers again, works the settlement out and shows it.
  void Leggi();
  /// Works the settlement out anew after a change of a field of this page.
  void Calcola();
  /// Forgets the registers: period or ranges are others.
  void Svuota() { totali_.reset(); }
  /// Whether a field of this page bears that name.
  [[nodiscard]] bool Ha(const QString& campo) const { return findChild<QWidget*>(campo); }

 private:
  QGroupBox* CreaDati();
  void MostraRighe(const vat::Liquidazione& liquidazione);
  void MostraAndamento(const vat::Liquidazione& liquidazione);
  void MostraTesto(const QString& testo);

  DatiRegistroIva& dati_;
  std::optional<std::vector<vat::TotaleRegistro>> totali_;
  Griglia* griglia_;
  QLabel* titolo_;
  QLabel* risultato_;
  GraficoBarre* grafico_;
};

}  // namespace fenalto::screens

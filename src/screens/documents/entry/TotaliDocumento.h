// The figures of the open document: below the grid the sums of its columns, at the foot of the page
// what it comes to and what it earns.
#pragma once

#include <QWidget>

#include "documents/entry/FattureCli.h"

class QLabel;

namespace fenalto::screens {

class Griglia;

class TotaliDocumento : public QWidget {
  Q_OBJECT

 public:
  /// `moneta` and `decQ` are the decimals of amounts and of quantities.
  TotaliDocumento(documents::FattureCli& documento, int moneta, int decQ,
                  QWidget* genitore = nullptr);

  /// The line that stands right below the grid.
  QWidget* CreaPiede(Griglia& griglia, int colonnaQuantita, int colonnaImporto);
  void Mostra();

 private:
  documents::FattureCli& documento_;
  int moneta_;
  int decQ_;
  QWidget* fattura_;  ///< what only documents with VAT come to
  QLabel* totImponibile_;
  QLabel* totIva_;
  QLabel* totFat_;
  QWidget* guadagno_;
  QLabel* margine_;
  QLabel* totQuantita_;
  QLabel* totRighe_;
};

}  // namespace fenalto::screens

// What the enquiry of a party shows of one due date, registration or document; read only.
#pragma once

#include <QStackedWidget>

#include "documents/InterrogazioneParte.h"

class QLabel;

namespace fenalto {

class Griglia;

class PannelloFoglia : public QWidget {
  Q_OBJECT

 public:
  /// `finestra` names the window for the remembered widths of the grids.
  explicit PannelloFoglia(const QString& finestra, QWidget* genitore = nullptr);

  /// Nothing is chosen; `invito` says what to do.
  void Svuota(const QString& invito);
  void Mostra(InterrogazioneParte& parte, const FogliaParte& foglia);

 private:
  QWidget* CreaDocumento();
  void MostraScadenza(InterrogazioneParte& parte, const FogliaParte& foglia);
  void MostraRegistrazione(InterrogazioneParte& parte, const FogliaParte& foglia);
  void MostraDocumento(InterrogazioneParte& parte, const FogliaParte& foglia);
  void Sparita();

  QString finestra_;
  QLabel* titolo_;
  QStackedWidget* pagine_;
  QLabel* invito_;
  Griglia* scadenza_;
  Griglia* movimenti_;
  QLabel* scritte_;
  Griglia* righe_;
  Griglia* iva_;
};

}  // namespace fenalto

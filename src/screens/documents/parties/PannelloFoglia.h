// What the enquiry of a party shows of one due date, registration or document; read only.
#pragma once

#include <QStackedWidget>

#include "documents/parties/InterrogazioneParte.h"

class QLabel;

namespace fenalto::screens {

class Griglia;

class PannelloFoglia : public QWidget {
  Q_OBJECT

 public:
  /// `finestra` names the window for the remembered widths of the grids.
  explicit PannelloFoglia(const QString& finestra, QWidget* genitore = nullptr);

  /// Nothing is chosen; `invito` says what to do.
  void Svuota(const QString& invito);
  void Mostra(documents::InterrogazioneParte& parte, const documents::FogliaParte& foglia);

 private:
  QWidget* CreaDocumento();
  void MostraScadenza(documents::InterrogazioneParte& parte, const documents::FogliaParte& foglia);
  void MostraRegistrazione(documents::InterrogazioneParte& parte,
                           const documents::FogliaParte& foglia);
  void MostraDocumento(documents::InterrogazioneParte& parte, const documents::FogliaParte& foglia);
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

}  // namespace fenalto::screens

// Rows pasted from a spreadsheet, before they go into the document: each line as it was understood,
// or what is wrong with it.
#pragma once

#include <QWidget>
#include <vector>

#include "documents/entry/RigheIncollate.h"
#include "screens/common/windows/Finestre.h"

class QAbstractButton;
class QLabel;
class QPushButton;

namespace fenalto::screens {

class Griglia;

class PannelloIncolla : public QWidget {
  Q_OBJECT

 public:
  explicit PannelloIncolla(Finestre& finestre, QWidget* genitore = nullptr);

  /// Shows what the clipboard holds; false (told) when there are no rows in it.
  bool Leggi();
  /// Where the focus goes: to what puts the rows in, or to what leaves.
  void Foco();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 signals:
  /// The rows that are well are to go into the document.
  void Accettate(const std::vector<documents::ValoriRiga>& righe);
  void Rinunciato();

 private:
  void Mostra();
  void Accetta();

  Finestre& finestre_;
  std::vector<documents::RigaIncollata> righe_;
  QLabel* stato_;
  Griglia* griglia_;
  QPushButton* inserisci_;
  QPushButton* rinuncia_;
};

}  // namespace fenalto::screens

// The output dialog of a report: where it goes, remembered for each report.
#pragma once

#include <QDialog>

#include "core/session/Porte.h"

class QLineEdit;
class QRadioButton;

namespace fenalto::print {

/// A name as a file can bear it, from the title of a report.
[[nodiscard]] QString NomeFile(const QString& titolo);

class DialogoUscita : public QDialog {
  Q_OBJECT

 public:
  explicit DialogoUscita(const QString& rapporto, QWidget* sopra = nullptr);
  /// What was chosen, once accepted.
  [[nodiscard]] SceltaUscita Scelta() const;
  void accept() override;

 private:
  void Ricorda() const;
  void Rammenta();
  void Sfoglia();
  void CambiaDestinazione();
  [[nodiscard]] Destinazione Indicata() const;
  [[nodiscard]] bool SuFile() const;
  /// The file with the ending of the chosen kind.
  [[nodiscard]] QString Completato() const;
  [[nodiscard]] QString Gruppo() const;

  QString rapporto_;
  QRadioButton* anteprima_;
  QRadioButton* stampante_;
  QRadioButton* pdf_;
  QRadioButton* testo_;
  QLineEdit* file_;
  QWidget* rigaFile_;
  QString confermato_;  ///< a file whose replacement the file dialog has asked about already
};

}  // namespace fenalto::print

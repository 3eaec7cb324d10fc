// A list of records with the line that narrows it: what the lists of registrations share.
//
// The list's own class says what a search reads (`Ricarica`); here are the search line with the
// state beside it, the grid, and the keys and clicks that lead from one to the other.
#pragma once

#include <QWidget>

#include "screens/common/lists/Griglia.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTimer;

namespace fenalto::screens {

class ElencoCercato : public QWidget {
  Q_OBJECT

 public:
  /// Reads again from the newest, with the same search.
  virtual void Ricarica() = 0;

 signals:
  /// A row became the current one by a click.
  void Indicato(qint64 numero);
  /// A row was double-clicked, or Enter was pressed on it.
  void Scelto(qint64 numero);

 protected:
  /// `cerca` is the object name of the search line; `colonnaNumero` the column of the number that
  /// the signals carry. The grid becomes the list's.
  ElencoCercato(const QString& cerca, const QString& segnaposto, Griglia* griglia,
                std::size_t colonnaNumero, QWidget* genitore);

  bool eventFilter(QObject* oggetto, QEvent* evento) override;

  [[nodiscard]] QLineEdit& Cerca() const { return *cerca_; }
  [[nodiscard]] QLabel& Stato() const { return *stato_; }
  [[nodiscard]] Griglia& Righe() const { return *griglia_; }
  /// Single shot: calls what has to follow once the events that wait have been taken.
  [[nodiscard]] QTimer& Ripresa() const { return *ripresa_; }
  /// The line above the grid, to which a list adds its buttons.
  [[nodiscard]] QHBoxLayout& Sopra() const { return *sopra_; }

 private:
  [[nodiscard]] qint64 NumeroDi(int riga) const;

  QLineEdit* cerca_;
  QLabel* stato_;
  Griglia* griglia_;
  QTimer* ripresa_;
  QHBoxLayout* sopra_;
  std::size_t colonnaNumero_;
};

}  // namespace fenalto::screens

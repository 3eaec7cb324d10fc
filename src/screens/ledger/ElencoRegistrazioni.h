// The list of the year's registrations with the line that narrows it.
//
// By number and date an index answers and rows come in pages as the list is scrolled. By account
// the registrations are gone through a stretch at a time between one event and the next, so that
// typing never waits, however many they are.
#pragma once

#include <QWidget>

#include "screens/ledger/LettoreArticoli.h"

class QLabel;
class QLineEdit;
class QTimer;

namespace fenalto {

class Griglia;

class ElencoRegistrazioni : public QWidget {
  Q_OBJECT

 public:
  explicit ElencoRegistrazioni(Ambiente& ambiente, QWidget* genitore = nullptr);
  /// Reads again from the newest, with the same search.
  void Ricarica();
  /// "15/03/2024   100.010  Cassa contanti  →  700.010  Vendite"; empty when there is none.
  [[nodiscard]] QString Descrizione(std::int64_t numero);
  void FocoCerca();

 signals:
  /// A row became the current one by a click.
  void Indicato(qint64 numero);
  /// A row was double-clicked, or Enter was pressed on it.
  void Scelto(qint64 numero);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void Prosegui();
  void DiTrovate();
  [[nodiscard]] qint64 NumeroDi(int riga) const;

  LettoreArticoli lettore_;
  RicercaArticoli ricerca_;
  QLineEdit* cerca_;
  QLabel* stato_;
  Griglia* griglia_;
  QTimer* ripresa_;
  std::int64_t sotto_ = 0;  ///< where the search goes on: numbers below this one
};

}  // namespace fenalto

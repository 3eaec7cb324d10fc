// The list of a register's registrations with the line that narrows it.
//
// Rows come in pages as the list is scrolled, so that a long register opens as fast as a short one;
// a click on a header reads the rest and sorts it.
#pragma once

#include <QWidget>

#include "screens/vat/LettoreFatture.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

namespace fenalto {

class Griglia;

class ElencoFatture : public QWidget {
  Q_OBJECT

 public:
  explicit ElencoFatture(Ambiente& ambiente, QWidget* genitore = nullptr);
  /// Shows a register's registrations; `classe` is that of its parties, `titolo` names the export.
  void Mostra(const std::string& riva, const std::string& classe, const std::string& titolo);
  /// Reads again from the newest, with the same search.
  void Ricarica();
  /// "registro 3 prot. 12   15/03/2024   122,00   9001  Rossi snc"; empty when there is none.
  [[nodiscard]] QString Descrizione(std::int64_t numero);
  [[nodiscard]] QPushButton* PulsanteEsporta() const { return esporta_; }

 signals:
  /// A row became the current one by a click.
  void Indicato(qint64 numero);
  /// A row was double-clicked, or Enter was pressed on it.
  void Scelto(qint64 numero);

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void LeggiTutte();
  void DiTrovate();
  [[nodiscard]] qint64 NumeroDi(int riga) const;

  Ambiente& ambiente_;
  LettoreFatture lettore_;
  std::string riva_;
  std::string classe_;
  std::string titolo_;
  QLineEdit* cerca_;
  QLabel* stato_;
  Griglia* griglia_;
  QPushButton* esporta_;
  QTimer* ripresa_;
  std::int64_t fino_ = LettoreFatture::kDallInizio;
};

}  // namespace fenalto

// All that is known of the open product besides its record: stock, movements, orders, offers, jobs.
//
// A page is read when it comes into sight, so that going through products costs nothing more.
#pragma once

#include <QTabWidget>
#include <functional>
#include <string>
#include <vector>

#include "screens/common/windows/Finestre.h"

class QPushButton;

namespace fenalto::screens {

class PaginaSituazione : public QTabWidget {
  Q_OBJECT

 public:
  explicit PaginaSituazione(Finestre& finestre, QWidget* genitore = nullptr);
  /// Shows a stored product; nothing for the empty code.
  void Mostra(const std::string& prodotto);
  /// Reads the page in sight anew; false when none is.
  bool Aggiorna();
  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const;

 protected:
  void showEvent(QShowEvent* evento) override;

 private:
  struct Scheda {
    std::function<void(const std::string& prodotto)> leggi;
    QPushButton* aggiorna;
    bool daLeggere = true;
  };
  void LeggiInVista();

  std::vector<Scheda> schede_;
  std::string prodotto_;
  QPushButton* stampa_ = nullptr;  ///< of the movements
};

}  // namespace fenalto::screens

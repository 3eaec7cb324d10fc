// One enquiry of what hangs on a product: a grid read a page at a time, its button, and the check
// box that widens it.
#pragma once

#include <QWidget>
#include <string>

#include "screens/common/windows/Finestre.h"
#include "warehouse/products/InterrogazioniProdotto.h"

class QCheckBox;
class QPushButton;

namespace fenalto::screens {

class Griglia;

class PaginaInterrogazione : public QWidget {
  Q_OBJECT

 public:
  PaginaInterrogazione(const warehouse::Interrogazione& interrogazione, Finestre& finestre,
                       QWidget* genitore = nullptr);
  ~PaginaInterrogazione() override;
  void Leggi(const std::string& prodotto);
  [[nodiscard]] QPushButton* PulsanteAggiorna() const { return aggiorna_; }

 private:
  void Apri(int indice);

  const warehouse::Interrogazione& interrogazione_;
  Finestre& finestre_;
  std::string prodotto_;
  Griglia* griglia_;
  QCheckBox* tutti_ = nullptr;
  QPushButton* aggiorna_;
};

}  // namespace fenalto::screens

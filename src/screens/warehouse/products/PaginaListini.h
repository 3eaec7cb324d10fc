// The page of a product's price lists: those it stands on, those it doesn't, the row in edit.
#pragma once

#include <QWidget>

#include "core/archives/ArchivioCodici.h"
#include "screens/common/windows/Finestre.h"
#include "warehouse/products/ListiniProdotto.h"

class QGroupBox;
class QListWidget;

namespace fenalto::screens {

class CampiForma;
class Griglia;
class Legatura;

class PaginaListini : public QWidget {
  Q_OBJECT

 public:
  PaginaListini(archives::ArchivioCodici& prodotti, Finestre& finestre, int decimali,
                QWidget* genitore = nullptr);

  /// Shows the lists of the open product.
  void Mostra();
  /// Gives the open row up; false when there was none.
  bool Annulla();
  /// The open row holds something typed.
  [[nodiscard]] bool Digitata() const;

 protected:
  void showEvent(QShowEvent* evento) override;

 private:
  void Disponi(int decimali);
  void Collega();
  void MostraElenchi();
  void MostraRiga();
  void Modifica(int indice);
  void Aggiungi();
  void Conferma();

  archives::ArchivioCodici& prodotti_;
  Finestre& finestre_;
  warehouse::ListiniProdotto listini_;
  Legatura* legatura_;
  Griglia* presenti_;
  QListWidget* assenti_;
  QGroupBox* riquadro_;
  CampiForma* campi_ = nullptr;
  std::string letto_;  ///< product whose lists are shown
  bool daLeggere_ = true;
};

}  // namespace fenalto::screens

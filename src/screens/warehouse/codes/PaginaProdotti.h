// One page of the search of products: a list with what narrows it.
#pragma once

#include <QWidget>

#include "screens/common/lists/ElencoCercato.h"
#include "warehouse/products/ElencoProdotti.h"

class QCheckBox;
class QHBoxLayout;

namespace fenalto::screens {

class CampoCodice;

class PaginaProdotti : public QWidget {
  Q_OBJECT

 public:
  /// `finestra` remembers the widths.
  PaginaProdotti(Ambiente& ambiente, warehouse::QualiProdotti quali, const QString& finestra);
  ~PaginaProdotti() override;

  [[nodiscard]] ElencoCercato& Elenco() const { return *elenco_; }
  /// Reads the list with the filters as they stand.
  void Ricarica();

 signals:
  void Scelto(const QString& codice);

 private:
  [[nodiscard]] FormaElenco Forma(const QString& finestra) const;
  CampoCodice* Filtro(QHBoxLayout& riga, const char* nome, const QString& didascalia,
                      const char* fonte);

  Ambiente& ambiente_;
  warehouse::QualiProdotti quali_;
  warehouse::ElencoProdotti prodotti_;
  CampoCodice* cat_ = nullptr;
  CampoCodice* cat2_ = nullptr;
  CampoCodice* gr_ = nullptr;
  CampoCodice* gr2_ = nullptr;
  CampoCodice* conto_ = nullptr;
  CampoCodice* fornitore_ = nullptr;
  QCheckBox* ancheFuoriUso_;
  ElencoCercato* elenco_;
};

}  // namespace fenalto::screens

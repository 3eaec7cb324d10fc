// The movements of the open product, with the running stock.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "screens/common/lists/Griglia.h"
#include "screens/common/windows/Finestre.h"
#include "warehouse/stock/VistaMovimenti.h"

class QCheckBox;
class QPushButton;

namespace fenalto::screens {

class CampoCodice;
class CampoData;

class PaginaMovimenti : public QWidget {
  Q_OBJECT

 public:
  explicit PaginaMovimenti(Finestre& finestre, QWidget* genitore = nullptr);
  ~PaginaMovimenti() override;
  /// Reads the movements of a product; by itself the first of many alone.
  void Leggi(const std::string& prodotto, bool daSola);
  [[nodiscard]] QPushButton* PulsanteAggiorna() const { return aggiorna_; }
  [[nodiscard]] QPushButton* PulsanteStampa() const { return stampa_; }

 private:
  void Disponi();
  [[nodiscard]] warehouse::FiltroMovimenti Filtro(bool daSola) const;
  void ApriDocumento(int indice);
  void Stampa();
  /// Gives a row the height of its text.
  void AdattaRiga(int indice);

  Finestre& finestre_;
  std::string prodotto_;
  CampoData* daDt_;
  CampoData* aaDt_;
  CampoCodice* soloMag_;
  CampoCodice* tipoDoc_;
  QCheckBox* prezzi_;
  QPushButton* aggiorna_;
  QPushButton* stampa_;
  Griglia* griglia_;
};

}  // namespace fenalto::screens

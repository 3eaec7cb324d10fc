// The window "Elenco prodotti, esistenze, lotti e funzioni varie": the warehouse report, what to
// order again, the automatic change of prices. What is chosen above holds for all pages.
#pragma once

#include "screens/common/reports/FinestraRapporto.h"
#include "warehouse/stock/StampaMagazzino.h"
#include "warehouse/stock/VariazionePrezzi.h"

class QLabel;
class QTabWidget;

namespace fenalto::screens {

class FinestraStProdotti : public FinestraRapporto {
  Q_OBJECT

 public:
  explicit FinestraStProdotti(Finestre& finestre);

  void ApriScheda(int scheda) override;
  /// The products chosen are the one of the reference.
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 protected:
  void Cambiato(const std::string& campo) override;

 private:
  void CreaPagine();
  QVBoxLayout& NuovaPagina(const QString& titolo);
  void CreaSituazione();
  void CreaRiordino();
  void CreaPrezzi();
  [[nodiscard]] std::vector<std::string> Colonne() const;
  [[nodiscard]] warehouse::SceltaMagazzino Situazione() const;
  void StampaSituazione();
  void FoglioSituazione();
  void LeggiRiordino();
  void VariaPrezzi();

  warehouse::StampaMagazzino stampa_;
  warehouse::VariazionePrezzi variazione_;
  QTabWidget* schede_;
  QVBoxLayout* situazione_ = nullptr;
  QVBoxLayout* prezzi_ = nullptr;
  Griglia* riordino_ = nullptr;
  QLabel* totaleRiordino_ = nullptr;
};

}  // namespace fenalto::screens

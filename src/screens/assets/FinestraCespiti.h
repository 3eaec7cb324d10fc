// The window of assets: the choice of one, its card, and what is done for a year at once.
#pragma once

#include "assets/Cespiti.h"
#include "assets/LettoreCespiti.h"
#include "screens/common/rows/FinestraDuePagine.h"

class QPushButton;

namespace fenalto::ledger {
struct PropostaRegistrazione;
}

namespace fenalto::screens {

class ElencoCercato;
class PaginaAmmortamenti;
class PaginaCespite;
class SelettoreArticolo;

class FinestraCespiti : public FinestraDuePagine {
  Q_OBJECT

 public:
  explicit FinestraCespiti(Finestre& finestre);
  ~FinestraCespiti() override;

  /// An asset by its number, or a new one from an invoice (AlNuovoCespite).
  void ApriRecord(const Rinvio& rinvio) override;

 protected:
  void Apri(std::int64_t numero) override;
  void AggiornaScelta() override;
  void DopoRegistrazione(std::int64_t numero) override;
  void ChiudiRecord() override;
  bool IndietroDaScelta() override;
  void FocoScelta() override;

 private:
  QWidget* CreaScelta();
  void Collega();
  void Nuovo();
  void NuovoDa(const Rinvio& fattura);
  void MostraCespite();
  void MostraTitolo();
  void Registra(const ledger::PropostaRegistrazione& proposta);

  assets::Cespiti cespiti_;
  assets::LettoreCespiti lettore_;
  SelettoreArticolo* selettore_ = nullptr;
  ElencoCercato* elenco_ = nullptr;
  QPushButton* nuovo_ = nullptr;
  PaginaCespite* pagina_;
  PaginaAmmortamenti* ammortamenti_;
};

}  // namespace fenalto::screens

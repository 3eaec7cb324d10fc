// The page that transports balances to another year; thin over TrasportoSaldi.
#pragma once

#include "ledger/closing/TrasportoSaldi.h"
#include "screens/ledger/closing/PaginaDiForma.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace fenalto::screens {

class Griglia;

class PaginaTrasporto : public PaginaDiForma {
  Q_OBJECT

 public:
  explicit PaginaTrasporto(Finestre& finestre);

 protected:
  void Lasciato(const std::string& campo) override { trasporto_->CampoLasciato(campo); }
  [[nodiscard]] records::StatoCampo Stato(const std::string& campo) const override;

 private:
  PaginaTrasporto(Finestre& finestre, std::unique_ptr<ledger::TrasportoSaldi> trasporto);
  void CreaLista();
  void MostraLista();
  void TogliRiga();
  void AbilitaNome();

  std::unique_ptr<ledger::TrasportoSaldi> trasporto_;
  Griglia* lista_ = nullptr;
  QLabel* totale_ = nullptr;
  QListWidget* archivi_ = nullptr;
  QPushButton* togli_ = nullptr;
  bool nomeLibero_ = false;
};

}  // namespace fenalto::screens

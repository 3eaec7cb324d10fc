// The window "Trasporto Esistenze Magazzino": what the year's stock comes to, looked at, and
// carried over to the next year.
#pragma once

#include "documents/carryover/TrasportoEsistenze.h"
#include "screens/common/reports/FinestraRapporto.h"

class QLabel;

namespace fenalto::screens {

class FinestraTrasportoEsistenze : public FinestraRapporto {
  Q_OBJECT

 public:
  explicit FinestraTrasportoEsistenze(Finestre& finestre);
  void Aggiorna() override;

 protected:
  void Cambiato(const std::string& campo) override;

 private:
  void CreaPiano(QVBoxLayout& colonna);
  void MostraPiano();
  void Leggi();
  void Conferma();

  documents::TrasportoEsistenze trasporto_;
  Griglia* piano_ = nullptr;
  QLabel* totale_ = nullptr;
};

}  // namespace fenalto::screens

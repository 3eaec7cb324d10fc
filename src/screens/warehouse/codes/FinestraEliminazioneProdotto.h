// The window "Eliminazione/Modifica codici  prodotti di magazzino e codici per righe ddt/fatture":
// where a code is used, and what is done with it. Thin over warehouse::EliminazioneProdotto.
//
// The archive of products opens it with a code (its own record given up before), and is shown again
// once the work is done.
#pragma once

#include "screens/common/windows/FinestraFunzione.h"
#include "warehouse/products/EliminazioneProdotto.h"

class QLabel;
class QPushButton;

namespace fenalto::screens {

class CampoTesto;

class FinestraEliminazioneProdotto : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraEliminazioneProdotto(Finestre& finestre);
  ~FinestraEliminazioneProdotto() override;

  /// The product of that code; the archive comes back when it is done with.
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 protected:
  bool Indietro() override;

 private:
  void Disponi();
  void Collega();
  void Apri();
  void MostraUsi();
  void MostraNuovo();
  void Elimina();
  void Rinomina();
  /// What was done shows: the archive with the code that there is now, or the choice of a product.
  void Fatto(const std::string& fatto);

  warehouse::EliminazioneProdotto prodotto_;
  std::optional<warehouse::UsiProdotto> usi_;
  std::vector<Rinvio> rinvii_;  ///< of the rows read
  bool dallArchivio_ = false;
  CampoCodice* selettore_;
  QPushButton* apri_;
  QPushButton* stampa_;
  QPushButton* elimina_;
  QPushButton* rinomina_;
  CampoTesto* nuovo_;
  QLabel* altro_;
  QLabel* titolo_;
  screens::Griglia* griglia_;
};

}  // namespace fenalto::screens

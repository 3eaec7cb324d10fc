// The window of products: that of every archive, with suppliers, price lists, files, and all that
// is known of the open one.
#pragma once

#include <memory>

#include "screens/common/archive/FinestraArchivioConRighe.h"
#include "warehouse/products/ArchivioProdotti.h"

namespace fenalto::screens {

class PaginaListini;
class PaginaSituazione;
class RiquadroFile;

class FinestraProdotti : public FinestraArchivioConRighe {
  Q_OBJECT

 public:
  explicit FinestraProdotti(Finestre& finestre);
  ~FinestraProdotti() override;

  void Abbandona() override;
  bool Indietro() override;
  void Aggiorna() override;

 protected:
  void MostraRecord() override;
  bool RaccogliAltro() override;
  [[nodiscard]] bool AltroModificato() const override;

 private:
  FinestraProdotti(std::shared_ptr<warehouse::ParteProdotto> parte, Finestre& finestre);

  void MostraAltro();
  void AggiornaCosto();
  /// Goes where a button leads; a product that may change its code there is given up first.
  void Vai(const Rinvio& rinvio);

  std::shared_ptr<warehouse::ParteProdotto> parte_;
  PaginaListini* listini_;
  RiquadroFile* file_;
  PaginaSituazione* situazione_;
};

}  // namespace fenalto::screens

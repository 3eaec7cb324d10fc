// The window of customers: that of every archive, with the list of goods destinations.
#pragma once

#include <memory>

#include "documents/parties/DestinazioniCliente.h"
#include "screens/common/archive/FinestraArchivio.h"

namespace fenalto::screens {

class RiquadroDestinazioni;

class FinestraClienti : public FinestraArchivio {
  Q_OBJECT

 public:
  explicit FinestraClienti(Finestre& finestre);
  ~FinestraClienti() override;

  void Abbandona() override;
  bool Indietro() override;

 protected:
  void MostraRecord() override;
  bool RaccogliAltro() override;
  [[nodiscard]] bool AltroModificato() const override;

 private:
  FinestraClienti(std::shared_ptr<documents::DestinazioniCliente> destinazioni, Finestre& finestre);

  std::shared_ptr<documents::DestinazioniCliente> destinazioni_;
  RiquadroDestinazioni* righe_;
};

}  // namespace fenalto::screens

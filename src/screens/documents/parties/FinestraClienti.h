// The window of customers: that of every archive, with the list of goods destinations.
#pragma once

#include <memory>

#include "documents/parties/DestinazioniCliente.h"
#include "screens/common/archive/FinestraArchivioConRighe.h"

namespace fenalto::screens {

class FinestraClienti : public FinestraArchivioConRighe {
  Q_OBJECT

 public:
  explicit FinestraClienti(Finestre& finestre);
  ~FinestraClienti() override;

 private:
  FinestraClienti(std::shared_ptr<documents::DestinazioniCliente> destinazioni, Finestre& finestre);

  std::shared_ptr<documents::DestinazioniCliente> destinazioni_;
};

}  // namespace fenalto::screens

// The window "Interrogazione cliente/fornitore": all that is known of a party as a tree, and what
// is chosen in it beside; thin over InterrogazioneParte.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraInterrCliFor : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraInterrCliFor(Finestre& finestre);
  ~FinestraInterrCliFor() override;

  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens

// The chart to look through: masters with their accounts, narrowed by what is typed. It has no menu
// entry of its own: the archive of accounts opens it.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraVisPdc : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraVisPdc(Finestre& finestre);
  ~FinestraVisPdc() override;

  /// Reads the chart: as it is whenever the list is asked for, though it was open already. What
  /// was searched last time stays, to be typed over.
  void ApriScheda(int scheda) override;
  /// Goes to the account (or master) of that code.
  void ApriRecord(const Rinvio& rinvio) override;
  void Aggiorna() override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens

// Matching of a bank statement with open due dates: the file's lines above, what the current one
// may settle below, accepted one by one.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraEstrattoBanca : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraEstrattoBanca(Finestre& finestre);
  ~FinestraEstrattoBanca() override;
  void Aggiorna() override;

 protected:
  bool PremiConferma() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens

// The window "Importazione archivi": an archive filled from a file of another program.
#pragma once

#include <memory>

#include "screens/common/windows/FinestraFunzione.h"

namespace fenalto::screens {

class FinestraImporta : public FinestraFunzione {
  Q_OBJECT

 public:
  explicit FinestraImporta(Finestre& finestre);
  ~FinestraImporta() override;

  /// The kind of that number in the list.
  void ApriScheda(int scheda) override;
  /// The kind of that name ("Clienti").
  void ApriRecord(const Rinvio& rinvio) override;
  /// Reads the file again.
  void Aggiorna() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

}  // namespace fenalto::screens

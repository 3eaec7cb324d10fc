// The row frame of a VAT registration: the fields of one taxable row, while it is open.
#pragma once

#include "screens/common/rows/SulCasoUso.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::screens {

class RiquadroRigaIva : public RiquadroSul<vat::RegistrazioneIva> {
  Q_OBJECT

 public:
  RiquadroRigaIva(vat::RegistrazioneIva& fatture, Finestre& finestre, QWidget* genitore = nullptr);

  [[nodiscard]] QList<QAbstractButton*> Pulsanti() const override;

 protected:
  bool ConfermaRiga(std::string& campo) override { return caso_.ConfermaRiga(&campo); }
  /// The first field that an accepted row can't be without and is empty.
  [[nodiscard]] std::string PrimoCampo() const override;

 private:
  void Scorpora();
};

}  // namespace fenalto::screens

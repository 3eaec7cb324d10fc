// The page of the rates of a payment code: the rows, and the fields of the one that is open.
#pragma once

#include <functional>

#include "duedates/codes/RateCodice.h"
#include "screens/common/rows/RigheDelRecord.h"

namespace fenalto::screens {

class RiquadroRata : public RigheDelRecord {
  Q_OBJECT

 public:
  RiquadroRata(duedates::RateCodice& rate, std::function<Scheda&()> codice, Finestre& finestre,
               QWidget* genitore = nullptr);

 protected:
  [[nodiscard]] bool InRiga() const override { return rate_.InRiga(); }
  [[nodiscard]] bool RigaNuova() const override { return rate_.RigaNuova(); }
  [[nodiscard]] Scheda& Riga() const override { return rate_.Riga(); }
  [[nodiscard]] std::vector<std::vector<Valore>> Elenco() const override;
  bool ApriRiga(const Valore& chiave) override { return rate_.ApriRiga(chiave.Testo()); }
  bool NuovaRiga() override { return rate_.NuovaRiga(); }
  bool ConfermaRiga(QString& campo) override;
  bool EliminaRiga() override { return rate_.EliminaRiga(); }
  void AnnullaRiga() override { rate_.AnnullaRiga(); }

 private:
  void CreaCampi();
  void Disponi();

  duedates::RateCodice& rate_;
  std::function<Scheda&()> codice_;
};

}  // namespace fenalto::screens

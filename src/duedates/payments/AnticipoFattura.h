// A deposit on an invoice that isn't issued or received yet: a due date below zero, which the
// invoice's own due date is lowered by when it comes.
#pragma once

#include <string>

#include "duedates/payments/ScadenzaDigitata.h"

namespace fenalto::duedates {

/// `Programma` of a deposit's due date.
inline constexpr const char* kProgrammaAnticipo = "acconti";

class AnticipoFattura : public ScadenzaDigitata {
 public:
  explicit AnticipoFattura(Ambiente& ambiente);

 protected:
  void Proponi() override;
  [[nodiscard]] std::optional<Intoppo> RifiutoImporto() const override;
  void Completa(ScadenzaConRegistrazione& cosa) const override;
  [[nodiscard]] std::string Nome() const override { return "dell'anticipo"; }
  [[nodiscard]] std::string Riuscita() const override;

 private:
  [[nodiscard]] std::string Testo() const;
};

}  // namespace fenalto::duedates

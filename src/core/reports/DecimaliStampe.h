// Decimals of amounts in euro wherever they are shown but in the text form, whose pictures always
// have three: graphic form, sheets, panels.
#pragma once

#include <string>
#include <string_view>

#include "core/session/Ambiente.h"
#include "core/values/Valore.h"

namespace fenalto::reports {

class DecimaliStampe {
 public:
  /// Two, and a third where it isn't zero.
  DecimaliStampe() = default;
  /// The company's: with `DecStampe` 3 always three.
  explicit DecimaliStampe(Ambiente& ambiente)
      : tre_(ambiente.DittaAperta() && ambiente.Config("DecStampe") == "3") {}

  [[nodiscard]] int Di(Importo importo) const;
  /// The picture of a model's field for a value: one of two decimals takes a third when the amount
  /// has it, any other stays as it is.
  [[nodiscard]] std::string DelModello(std::string_view formato, const Valore& valore) const;
  /// A panel's picture with `ç` for an amount: what isn't shown of the third decimal is a blank, so
  /// that commas stay one under the other.
  [[nodiscard]] std::string SulPannello(std::string_view sagoma, Importo importo, bool euro) const;

 private:
  bool tre_ = false;
};

}  // namespace fenalto::reports

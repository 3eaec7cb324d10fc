// A value of a field: Null, yes-no, whole number, amount, real, date or text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/values/Data.h"
#include "core/values/Importo.h"

namespace fenalto {

/// Type of a column or an expression in the store's language.
enum class Tipo { Nullo, Booleano, Intero, Importo, Reale, Data, Testo };

class Valore {
 public:
  Valore() = default;
  Valore(bool v) : v_(v) {}                            // NOLINT
  Valore(int v) : v_(static_cast<std::int64_t>(v)) {}  // NOLINT
  Valore(std::int64_t v) : v_(v) {}                    // NOLINT
  Valore(fenalto::Importo v) : v_(v) {}                // NOLINT
  Valore(double v) : v_(v) {}                          // NOLINT
  Valore(fenalto::Data v) : v_(v) {}                   // NOLINT
  Valore(std::string v) : v_(std::move(v)) {}          // NOLINT
  Valore(std::string_view v) : v_(std::string(v)) {}   // NOLINT
  Valore(const char* v) : v_(std::string(v)) {}        // NOLINT

  [[nodiscard]] fenalto::Tipo Tipo() const { return static_cast<fenalto::Tipo>(v_.index()); }
  [[nodiscard]] bool Nullo() const { return v_.index() == 0; }

  // Reads with Null as the empty value and the conversions a form needs: number from its neutral
  // text (blank is 0) and back, yes-no from a number (not zero) or "True"/"False", True as 1, date
  // from its ISO text, date from and to its count of days. A conversion that makes no sense
  // (letters to a number, yes-no to a date) throws std::domain_error, a number too great
  // FuoriCampo. A real becomes an amount through its shortest decimal text, rounded to the nearest,
  // ties to even.
  [[nodiscard]] bool Booleano() const;
  [[nodiscard]] std::int64_t Intero() const;  ///< amounts are rounded to the nearest, ties even
  [[nodiscard]] fenalto::Importo Importo() const;
  [[nodiscard]] double Reale() const;
  [[nodiscard]] fenalto::Data Data() const;
  /// Text; other types in the neutral form of Neutro().
  [[nodiscard]] std::string Testo() const;
  /// The text itself without a copy; throws std::domain_error when this isn't a text.
  [[nodiscard]] const std::string& RifTesto() const;

  /// Neutral text: text as it is, Null "", "True"/"False", "2024-03-15" (null date ""), numbers
  /// with a decimal point and no trailing zeros.
  [[nodiscard]] std::string Neutro() const;

  /// This value converted to `tipo` (Null stays Null); throws as the reads above.
  [[nodiscard]] Valore Come(fenalto::Tipo tipo) const;
  /// The empty value of a type: "", 0, false, null date.
  [[nodiscard]] static Valore Vuoto(fenalto::Tipo tipo);

  /// Same value: numbers and yes-no by amount whatever their type, texts ignoring case, dates by
  /// day, Null only with Null; a text, a date and a number are never the same.
  friend bool operator==(const Valore& a, const Valore& b);

 private:
  std::variant<std::monostate, bool, std::int64_t, fenalto::Importo, double, fenalto::Data,
               std::string>
      v_;
};

/// Null to 0 (other values as they are).
Valore Nz(const Valore& valore);
/// Null to "" (other values as text).
std::string NzStr(const Valore& valore);

}  // namespace fenalto

// What the program knows of each type of VAT register: one table for archives, postings, invoices
// and register prints.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace fenalto::vat {

enum class LatoImporto { Nessuno, Dare, Avere };

/// The side across.
[[nodiscard]] constexpr LatoImporto Opposto(LatoImporto lato) {
  if (lato == LatoImporto::Nessuno) return lato;
  return lato == LatoImporto::Dare ? LatoImporto::Avere : LatoImporto::Dare;
}

struct TipoRegistro {
  std::string_view tipo;
  /// Class of the party of its registrations: "C", "F" or "P" (the cash account of receipts); empty
  /// when no registration is posted on it.
  std::string_view cfp;
  /// Side of a taxable and of a VAT row above zero; the party row stands on the side across.
  LatoImporto latoImposta = LatoImporto::Nessuno;
  /// Caption of a new registration (with receipts: of the daily one).
  std::string_view didascalia;
  /// Caption where receipts are registered once a month; empty on the other types.
  std::string_view didascaliaMensile = {};
  /// Description of the register's three causals; empty when it has none.
  std::string_view causale = {};
  bool corrispettivi = false;
  /// Receipts that propose a VAT code of the register.
  bool codiceIvaProposto = false;
  /// Amounts of these receipts hold the VAT: it isn't worked out row by row, and where there is
  /// none no VAT row is posted.
  bool ivaFacoltativa = false;
  /// Written only by the program, never by hand.
  bool soloProgramma = false;
  /// Issued documents may be posted on it.
  bool documenti = false;
};

/// All types, in order.
[[nodiscard]] std::span<const TipoRegistro> TipiRegistro();

/// The type of that key, null when there is none.
[[nodiscard]] const TipoRegistro* TrovaTipoRegistro(std::string_view tipo);

/// Whether registers of that type keep receipts.
[[nodiscard]] bool RegistroCorrispettivi(std::string_view tipo);

/// Side of a taxable or VAT row above zero on that type; none for a type that isn't posted on.
[[nodiscard]] LatoImporto LatoImposta(std::string_view tipo);

/// Caption of a new registration, empty for an unknown type.
[[nodiscard]] std::string_view DidascaliaRegistrazione(std::string_view tipo, bool mensile);

}  // namespace fenalto::vat

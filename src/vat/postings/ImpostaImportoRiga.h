// On which side of a row an amount goes, by type of register and kind of row.
#pragma once

#include <string_view>

#include "core/values/Importo.h"

namespace fenalto::vat {

/// Kinds "IMP" (taxable), "IVA" and "CLIFOR" (party).
enum class GenereRigaIva { Imp, Iva, CliFor };

struct LatiRiga {
  Importo dare;
  Importo avere;
  friend bool operator==(const LatiRiga&, const LatiRiga&) = default;
};

/// An amount that isn't negative, and any with `inverte` off, stands with its sign on the natural
/// side. With `inverte` on (InvertoDAinNoteCredito) a negative one stands without its sign on the
/// side across. Nothing changes on a type of register that isn't posted on.
void ImpostaImportoRiga(GenereRigaIva genere, Importo importo, std::string_view tipoRegistro,
                        bool inverte, Importo& dare, Importo& avere);

/// The same as a value; both sides zero on such a type.
[[nodiscard]] LatiRiga LatiDiRiga(GenereRigaIva genere, Importo importo,
                                  std::string_view tipoRegistro, bool inverte);

}  // namespace fenalto::vat

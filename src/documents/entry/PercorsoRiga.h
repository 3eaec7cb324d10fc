// The way through the open row of a document: as few stops as the work needs.
#pragma once

#include <string>
#include <string_view>

#include "documents/entry/FattureCli.h"

namespace fenalto::documents {

/// Where Enter leads from a field of the open row: from the product to the quantity (from an empty
/// product to the text), from the quantity to the price where it is to be typed or looked at.
/// Nothing when the row is whole and Enter confirms it.
std::string DopoCampoRiga(FattureCli& documento, std::string_view campo);

/// Fields from which Enter doesn't simply lead to the next one.
bool NelPercorso(std::string_view campo);

/// What a text in the product's field, ended by Enter, is.
enum class GenereLetto {
  Codice,       ///< the code of a product
  Barcode,      ///< a barcode
  Parole,       ///< words that fit one product only
  PiuProdotti,  ///< words that fit several
  Niente
};
GenereLetto CheCosaELetto(Ambiente& ambiente, const std::string& letto);

}  // namespace fenalto::documents

// The forms of a VAT registration as tables: its head (register, numbers, dates, party, payment)
// and what is registered together with it (reverse charge, customs bill, withholdings).
#pragma once

#include <string>

#include "core/records/DescrizioneForma.h"
#include "vat/entry/RegistrazioneIva.h"

namespace fenalto::screens {

/// Those seldom touched come at later turns.
records::DescrizioneForma FormaTestaFattura();
records::StatoCampo StatoTestaFattura(const vat::RegistrazioneIva& fatture,
                                      const std::string& nome);

records::DescrizioneForma FormaOpzioniFattura();
/// Shows the frames of the register's type.
records::StatoCampo StatoOpzioniFattura(vat::RegistrazioneIva& fatture, const std::string& nome);

}  // namespace fenalto::screens

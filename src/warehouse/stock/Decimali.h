// With how many decimals quantities and prices are shown, as the company's settings say.
#pragma once

#include <string>

#include "core/session/Ambiente.h"

namespace fenalto::warehouse {

/// `DecQ`: 0 to 4, 2 unless set.
int DecimaliQuantita(Ambiente& ambiente);
/// `DecP`: 2 to 4, 2 unless set.
int DecimaliPrezzo(Ambiente& ambiente);
/// With thousands marks; further decimals of the value are shown too.
std::string ScriviQuantita(Ambiente& ambiente, Importo quantita);
std::string ScriviPrezzo(Ambiente& ambiente, Importo prezzo);

}  // namespace fenalto::warehouse

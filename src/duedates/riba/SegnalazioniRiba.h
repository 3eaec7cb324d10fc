// What is to be looked at before a batch goes to the bank, told once for all receipts.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/Scadenza.h"
#include "duedates/riba/FileRiba.h"

namespace fenalto {

/// Groups of lines: first the receipts whose amount isn't a plain one, or whose customer lacks its
/// summary account (`contabile`), then the notes of the file, each text once with the receipts that
/// it stands for. `viste` follows the receipts of `distinta`.
std::vector<std::string> SegnalazioniRiba(Ambiente& ambiente, const DistintaRiba& distinta,
                                          const FileRiba& file, const std::vector<Scadenza>& viste,
                                          bool contabile);

/// The groups as one message, cut to what stands on a screen; empty when there is none.
std::string MessaggioSegnalazioni(const std::vector<std::string>& gruppi);

/// The grave notes of the file, for which it can't be written; empty when there is none.
std::string ImpedimentiRiba(const DistintaRiba& distinta, const FileRiba& file);

}  // namespace fenalto

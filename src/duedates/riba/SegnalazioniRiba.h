// What is to be looked at before a batch goes to the bank, told once for all receipts. A group is a
// text of one or more lines with the receipts that it stands for.
#pragma once

#include <string>
#include <vector>

#include "core/session/Ambiente.h"
#include "duedates/riba/FileRiba.h"
#include "duedates/schedules/Scadenza.h"

namespace fenalto::duedates {

/// Receipts whose amount isn't a plain one, or whose customer lacks its summary account
/// (`contabile`). `viste` follows the receipts of `distinta`.
std::vector<std::string> SegnalazioniRiba(Ambiente& ambiente, const DistintaRiba& distinta,
                                          const std::vector<Scadenza>& viste, bool contabile);

/// The notes of the file.
std::vector<std::string> SegnalazioniFile(const DistintaRiba& distinta, const FileRiba& file);

/// What the question before the batch adds: the remarks on the receipts, how many there are on the
/// file. Empty when there is nothing.
std::string AvvertenzeRiba(const std::vector<std::string>& distinta,
                           const std::vector<std::string>& file);

/// The notes of the file as one message, cut to what stands on a screen; empty when there is none.
std::string MessaggioFile(const std::vector<std::string>& gruppi);

/// The grave notes of the file, for which it can't be written; empty when there is none.
std::string ImpedimentiRiba(const DistintaRiba& distinta, const FileRiba& file);

}  // namespace fenalto::duedates

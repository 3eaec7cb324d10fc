// "Compattamento database": the open company's databases without the room that they waste.
#pragma once

#include "core/session/Ambiente.h"

namespace fenalto {

/// Advises a copy, asks, takes the company alone, copies it, compacts, and opens it again. The old
/// databases stay until the new ones are found whole, with as many rows in every table, and open.
/// False when the company is as it was (told).
bool CompattaDitta(Ambiente& ambiente);

}  // namespace fenalto

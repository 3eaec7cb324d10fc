// Progress of an output as the program's own progress box.
#pragma once

#include "core/session/Porte.h"
#include "print/UscitaDipinta.h"

namespace fenalto::print {

/// A box that counts the pages composed, then those written; it comes with the first page and goes
/// with the output. `dialoghi` must outlive the output.
AvanzaPagine AvanzaCon(Dialoghi& dialoghi);

}  // namespace fenalto::print

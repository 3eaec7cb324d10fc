#include "ledger/ArchiviContabili.h"

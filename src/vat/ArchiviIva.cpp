#include "vat/ArchiviIva.h"

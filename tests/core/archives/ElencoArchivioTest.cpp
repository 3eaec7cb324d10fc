#include "core/archives/ElencoArchivio.h"

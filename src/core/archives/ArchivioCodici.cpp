#include "core/archives/ArchivioCodici.h"

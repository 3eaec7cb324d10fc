#include "warehouse/ArchiviMagazzino.h"

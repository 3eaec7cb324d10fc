#include "duedates/ArchiviScadenze.h"

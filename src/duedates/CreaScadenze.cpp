#include "duedates/CreaScadenze.h"

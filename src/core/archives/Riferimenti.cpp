#include "core/archives/Riferimenti.h"

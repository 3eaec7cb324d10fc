#include "screens/common/FinestraArchivio.h"

#include "documents/ArchiviDocumenti.h"

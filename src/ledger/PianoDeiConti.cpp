#include "ledger/PianoDeiConti.h"

#include "duedates/Rate.h"

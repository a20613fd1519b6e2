#include "Services/Index/SearchCache.h"

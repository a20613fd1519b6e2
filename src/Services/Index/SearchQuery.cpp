#include "Services/Index/SearchQuery.h"

#include "Services/Index/IndexSearchResult.h"

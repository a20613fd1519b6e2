#include "Services/Index/IndexSearch.h"

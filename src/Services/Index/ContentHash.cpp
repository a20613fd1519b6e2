#include "Services/Index/ContentHash.h"

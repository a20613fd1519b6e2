#include "Services/TagIndexService.h"

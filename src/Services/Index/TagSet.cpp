#include "Services/Index/TagSet.h"

#include "Services/Index/NoteTags.h"

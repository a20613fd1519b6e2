#include "Services/Index/LowercaseMatcher.h"

#include "Services/Index/IndexDatabase.h"

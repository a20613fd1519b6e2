#include "Services/ContentProcessor.h"

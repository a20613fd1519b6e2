#include "Services/Index/FileReadings.h"

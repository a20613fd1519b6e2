#include "Services/Index/VaultMonitor.h"

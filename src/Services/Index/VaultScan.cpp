#include "Services/Index/VaultScan.h"

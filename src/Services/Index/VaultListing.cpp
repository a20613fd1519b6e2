#include "Services/Index/VaultListing.h"

#include "Services/Index/DeferredSyncVfs.h"

#include "Support/Database.h"

#include "Services/Index/FileMetadata.h"

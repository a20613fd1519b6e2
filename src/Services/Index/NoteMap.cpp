#include "Services/Index/NoteMap.h"

#include "Services/Index/NoteIndex.h"

#include "Services/Index/NoteExtraction.h"

#include "Services/Index/NoteFile.h"

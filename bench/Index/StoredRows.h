#pragma once

#include "Reference/BareStore.h"

#include "Services/Index/NoteMap.h"

namespace jotwell::bench {

/// The notes as rows of the database, in the order in which the index stores them.
[[nodiscard]] std::vector<BareRow> rowsOf(const NoteMap& notes);

} // namespace jotwell::bench

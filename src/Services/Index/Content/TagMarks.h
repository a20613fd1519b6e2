#pragma once

#include "Services/Index/TagSet.h"

#include <QByteArrayView>

namespace jotwell {

/// Whether what stands before a mark keeps it from being one. `mark` is not at `begin`.
using HoldsBack = bool (*)(const char* mark);

/// What stands behind the marks "#" of a text, in lower case: ASCII letters, digits, underscores
/// and dashes. Valid UTF-8, linear.
[[nodiscard]] TagSet tagsAtMarks(QByteArrayView text, HoldsBack holdsBack);

} // namespace jotwell

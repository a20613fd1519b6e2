#pragma once

#include "Services/Index/TagSet.h"

#include <QByteArrayView>

namespace jotwell {

// The tags in a note's raw text, in lower case and without "#". Valid UTF-8, linear, any thread.

/// Tags of the front matter: what stands behind "tags:" or "tag:", and every list item of two
/// blanks, between the first two lines "---".
[[nodiscard]] TagSet extractFrontmatterTags(QByteArrayView text);

/// Every "#word" but one directly behind a backtick.
[[nodiscard]] TagSet extractContentTags(QByteArrayView text);

} // namespace jotwell

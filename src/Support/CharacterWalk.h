#pragma once

#include <QStringView>

#include <limits>
#include <vector>

namespace jotwell {

/// Some user-perceived characters at the beginning of a text.
struct WalkedCharacters {
    qsizetype count = 0; ///< characters
    qsizetype end = 0;   ///< behind the last one, in UTF-16 units
};

// Characters end where ICU's break iterator says; it is asked only where code points join in other
// ways than as marks behind a letter. Any thread.

/// The first `most` characters of the text, or all of a text that has no more.
[[nodiscard]] WalkedCharacters
walkCharacters(QStringView text, qsizetype most = std::numeric_limits<qsizetype>::max());

/// Where each character begins, in UTF-16 units.
[[nodiscard]] std::vector<qsizetype> characterBegins(QStringView text);

} // namespace jotwell

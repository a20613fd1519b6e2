#pragma once

#include <QByteArray>

namespace jotwell {

// What is done line by line. Valid UTF-8, linear.

/// Takes a heading's, a list's and one quote's mark from the start of every line, and every rule of
/// dashes. Lines are joined again by a line feed.
void removeLineMarks(QByteArray& text);

enum class LineMarks { keep, remove };

/// Puts the whole text on one line: runs of spaces and line ends become one blank, and none at
/// either end. Gives the number of words, which are what stands between the blanks. Marks are
/// removed beforehand, as by `removeLineMarks`.
qint64 flatten(QByteArray& text, LineMarks marks);

} // namespace jotwell

#pragma once

#include <QByteArray>

namespace jotwell {

// Takes marks out of a text that is shown without them. Valid UTF-8, linear.

/// A caret and the word characters and dashes behind it, at least one of them.
void removeBlockReferences(QByteArray& text);

/// Every asterisk and underscore, and then every pair of tildes.
void removeEmphasis(QByteArray& text);

} // namespace jotwell

#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <vector>

namespace jotwell {

/// A stretch of a text: location and length in UTF-16 units.
struct TextRange {
    qsizetype location = 0;
    qsizetype length = 0;

    [[nodiscard]] qsizetype end() const { return location + length; }
    bool operator==(const TextRange&) const = default;
};

// The two ways in which a text is counted. They differ as soon as it holds a character outside the
// basic plane or a combining one; which of them a rule asks for is part of the rule.

/// Length in UTF-16 units.
[[nodiscard]] qsizetype utf16Length(QStringView text);
/// Number of user-perceived characters (grapheme clusters).
[[nodiscard]] qsizetype characterCount(QStringView text);
/// The first `count` characters; all of a text that has no more.
[[nodiscard]] QStringView firstCharacters(QStringView text, qsizetype count);
/// Where each character begins, in UTF-16 units, and the end of the text.
[[nodiscard]] std::vector<qsizetype> characterBoundaries(QStringView text);

/// Blanks, tabs and the other spaces of Unicode, without line ends.
[[nodiscard]] bool isWhitespace(QChar unit);
/// Characters that end a line: U+000A to U+000D, U+0085, U+2028, U+2029.
[[nodiscard]] bool isNewline(QChar unit);

[[nodiscard]] QString trimmedWhitespace(QStringView text);
[[nodiscard]] QString trimmedWhitespaceAndNewlines(QStringView text);

/// The text that is `utf8`, a byte order mark at its beginning included.
[[nodiscard]] QString textFromUtf8(QByteArrayView utf8);

/// What stands before the first line end; the whole text if there is none.
[[nodiscard]] QStringView firstLine(QStringView text);

/// Whether `left` sorts before `right` by Unicode code point.
[[nodiscard]] bool precedesByCodePoint(QStringView left, QStringView right);

} // namespace jotwell

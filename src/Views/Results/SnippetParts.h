#pragma once

#include <QList>
#include <QString>

namespace jotwell {

/// A stretch of a found text.
struct SnippetPart {
    QString text;
    bool isHighlighted = false;

    bool operator==(const SnippetPart&) const = default;
};

using SnippetParts = QList<SnippetPart>;

/// Parts a text at its `<mark>` and `</mark>`, which needn't be in pairs. A tag of which a
/// combining character has made another character is none.
[[nodiscard]] SnippetParts parseSnippet(const QString& snippet);

/// The text alone.
[[nodiscard]] QString plainText(const SnippetParts& parts);

} // namespace jotwell

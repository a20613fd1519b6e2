#pragma once

#include <QStringView>

#include <optional>
#include <vector>

class QTextCursor;
class QTextDocument;

namespace jotwell {

/// A paragraph whose direction isn't that of its text.
struct ParagraphDirection {
    int block = 0; ///< number
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// The direction of a text's first character that has one.
[[nodiscard]] std::optional<Qt::LayoutDirection> directionOf(QStringView text);

[[nodiscard]] bool hasRightToLeft(QStringView text);

/// By itself a text area gives the first paragraph's direction to all of them.
[[nodiscard]] std::vector<ParagraphDirection> wrongDirections(const QTextDocument& document);

/// As part of the cursor's edit.
void setDirections(QTextCursor& cursor, const std::vector<ParagraphDirection>& directions);

} // namespace jotwell

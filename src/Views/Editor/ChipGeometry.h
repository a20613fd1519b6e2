#pragma once

#include <QList>
#include <QRectF>

#include <utility>

class QTextDocument;

namespace jotwell {

/// Where the text from one position of a laid out document to another stands, in the document's
/// coordinates: one rectangle for each line that it touches, as high as the line.
[[nodiscard]] QList<QRectF> rectsForRange(const QTextDocument& document, int from, int to);

/// The positions between which a document's text may be seen from one height to another.
[[nodiscard]] std::pair<int, int> positionsBetween(const QTextDocument& document, qreal top,
                                                   qreal bottom);

} // namespace jotwell

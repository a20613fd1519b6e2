#include "Views/Editor/ParagraphDirections.h"

#include "Support/CharacterClasses.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace jotwell {

namespace {

constexpr char16_t firstRightToLeft = 0x590; // Hebrew; nothing before it runs that way

// A loop that doesn't end early is taken many units at a time.
bool isPlainlyLeftToRight(QStringView text)
{
    bool found = false;
    for (const QChar unit : text)
        found |= unit.unicode() >= firstRightToLeft;
    return !found;
}

// Calls `isWanted` with the direction of each character that has one, until it says yes.
template <typename Predicate>
bool anyDirection(QStringView text, Predicate isWanted)
{
    CodePoint character;
    for (qsizetype at = 0; at < text.size(); at += character.length) {
        character = codePointAt(text, at);
        const QChar::Direction direction = QChar::direction(character.value);
        if (direction == QChar::DirL && isWanted(Qt::LeftToRight))
            return true;
        if ((direction == QChar::DirR || direction == QChar::DirAL) && isWanted(Qt::RightToLeft))
            return true;
    }
    return false;
}

} // namespace

std::optional<Qt::LayoutDirection> directionOf(QStringView text)
{
    std::optional<Qt::LayoutDirection> first;
    anyDirection(text, [&first](Qt::LayoutDirection direction) {
        first = direction;
        return true;
    });
    return first;
}

bool hasRightToLeft(QStringView text)
{
    return !isPlainlyLeftToRight(text) && anyDirection(text, [](Qt::LayoutDirection direction) {
        return direction == Qt::RightToLeft;
    });
}

std::vector<ParagraphDirection> wrongDirections(const QTextDocument& document)
{
    std::vector<ParagraphDirection> wrong;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const auto wanted = directionOf(block.text());
        if (wanted && *wanted != block.blockFormat().layoutDirection())
            wrong.push_back({block.blockNumber(), *wanted});
    }
    return wrong;
}

void setDirections(QTextCursor& cursor, const std::vector<ParagraphDirection>& directions)
{
    for (const ParagraphDirection& each : directions) {
        cursor.setPosition(cursor.document()->findBlockByNumber(each.block).position());
        QTextBlockFormat format;
        format.setLayoutDirection(each.direction);
        cursor.mergeBlockFormat(format);
    }
}

} // namespace jotwell

#include "Views/Editor/ParagraphDirections.h"

#include "Support/CharacterClasses.h"
#include "Views/Editor/TextScan.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace jotwell {

namespace {

constexpr char16_t firstRightToLeft = 0x590; // Hebrew; nothing before it runs that way

std::optional<Qt::LayoutDirection> directionOf(char32_t character)
{
    switch (QChar::direction(character)) {
    case QChar::DirL:
        return Qt::LeftToRight;
    case QChar::DirR:
    case QChar::DirAL:
        return Qt::RightToLeft;
    default:
        return std::nullopt;
    }
}

qsizetype findHighUnit(QStringView text, qsizetype from)
{
    return findUnit(text, from, [](char16_t unit) { return unit >= firstRightToLeft; });
}

} // namespace

std::optional<Qt::LayoutDirection> directionOf(QStringView text)
{
    CodePoint character;
    for (qsizetype at = 0; at < text.size(); at += character.length) {
        character = codePointAt(text, at);
        if (const auto direction = directionOf(character.value))
            return direction;
    }
    return std::nullopt;
}

bool hasRightToLeft(QStringView text)
{
    CodePoint character;
    for (qsizetype at = findHighUnit(text, 0); at < text.size();
         at = findHighUnit(text, at + character.length)) {
        character = codePointAt(text, at);
        if (directionOf(character.value) == Qt::RightToLeft)
            return true;
    }
    return false;
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

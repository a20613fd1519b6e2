#include "Support/TextUnits.h"

#include "Support/CharacterClasses.h"
#include "Support/CharacterWalk.h"

#include <unicode/ustring.h>

#include <QStringDecoder>

#include <algorithm>

namespace jotwell {

namespace {

template <typename Predicate>
QString trimmed(QStringView text, Predicate isTrimmed)
{
    const auto first = std::find_if_not(text.begin(), text.end(), isTrimmed);
    auto last = text.end();
    while (last != first && isTrimmed(*(last - 1)))
        --last;
    return QString(first, last - first);
}

} // namespace

qsizetype utf16Length(QStringView text)
{
    return text.size();
}

qsizetype characterCount(QStringView text)
{
    // Below U+0300 every unit is a character of its own, but for CR LF.
    const qsizetype rest =
        findUnit(text, 0, [](char16_t unit) { return (unit >= 0x300) | (unit == u'\r'); });
    if (rest == text.size())
        return rest;
    // Where the first other unit stands it may belong to the one before it.
    const qsizetype before = std::max<qsizetype>(rest - 1, 0);
    return before + walkCharacters(text.sliced(before)).count;
}

QStringView firstCharacters(QStringView text, qsizetype count)
{
    return text.first(walkCharacters(text, count).end);
}

std::vector<qsizetype> characterBoundaries(QStringView text)
{
    std::vector<qsizetype> boundaries = characterBegins(text);
    boundaries.push_back(text.size());
    return boundaries;
}

bool isWhitespace(QChar unit)
{
    return isBlank(unit.unicode());
}

bool isNewline(QChar unit)
{
    return isNewline(char32_t(unit.unicode()));
}

QString trimmedWhitespace(QStringView text)
{
    return trimmed(text, [](QChar unit) { return isWhitespace(unit); });
}

QString trimmedWhitespaceAndNewlines(QStringView text)
{
    return trimmed(text, [](QChar unit) { return isSpace(unit.unicode()); });
}

QString textFromUtf8(QByteArrayView utf8)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decode(utf8);
}

QStringView firstLine(QStringView text)
{
    const auto end =
        std::find_if(text.begin(), text.end(), [](QChar unit) { return isNewline(unit); });
    return text.first(end - text.begin());
}

bool precedesByCodePoint(QStringView left, QStringView right)
{
    if (left.isEmpty() || right.isEmpty()) // ICU takes a text without an address for equal to all
        return left.size() < right.size();
    return u_strCompare(reinterpret_cast<const UChar*>(left.utf16()),
                        static_cast<int32_t>(left.size()),
                        reinterpret_cast<const UChar*>(right.utf16()),
                        static_cast<int32_t>(right.size()), true) < 0;
}

} // namespace jotwell

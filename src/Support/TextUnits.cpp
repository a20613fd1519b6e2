#include "Support/TextUnits.h"

#include <unicode/ubrk.h>
#include <unicode/ustring.h>

#include <QStringDecoder>

#include <algorithm>
#include <memory>
#include <numeric>

namespace jotwell {

namespace {

// Below U+0300 every unit is a character of its own, but for CR LF.
bool isOneCharacterPerUnit(QStringView text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar unit) { return unit.unicode() < 0x300 && unit != u'\r'; });
}

using Boundaries = std::unique_ptr<UBreakIterator, decltype(&ubrk_close)>;

Boundaries boundariesOf(QStringView text)
{
    UErrorCode status = U_ZERO_ERROR;
    UBreakIterator* const boundaries =
        ubrk_open(UBRK_CHARACTER, "", reinterpret_cast<const UChar*>(text.utf16()),
                  static_cast<int32_t>(text.size()), &status);
    return {U_FAILURE(status) ? nullptr : boundaries, &ubrk_close};
}

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
    if (isOneCharacterPerUnit(text))
        return text.size();
    const Boundaries boundaries = boundariesOf(text);
    if (!boundaries)
        return text.size();
    qsizetype count = 0;
    while (ubrk_next(boundaries.get()) != UBRK_DONE)
        ++count;
    return count;
}

QStringView firstCharacters(QStringView text, qsizetype count)
{
    // One unit more: it may belong to the last character.
    if (text.size() <= count || isOneCharacterPerUnit(text.first(count + 1)))
        return text.first(std::min(text.size(), count));
    const Boundaries boundaries = boundariesOf(text);
    qsizetype end = boundaries ? 0 : count;
    for (; boundaries && count > 0 && end < text.size(); --count)
        end = ubrk_next(boundaries.get());
    return text.first(end);
}

std::vector<qsizetype> characterBoundaries(QStringView text)
{
    std::vector<qsizetype> places(static_cast<std::size_t>(text.size() + 1));
    std::iota(places.begin(), places.end(), 0);
    if (isOneCharacterPerUnit(text))
        return places;
    const Boundaries boundaries = boundariesOf(text);
    if (!boundaries)
        return places;
    auto last = places.begin();
    for (int32_t next = ubrk_next(boundaries.get()); next != UBRK_DONE;
         next = ubrk_next(boundaries.get()))
        *++last = next;
    places.erase(last + 1, places.end());
    return places;
}

bool isWhitespace(QChar unit)
{
    return unit == u'\t' || unit.category() == QChar::Separator_Space;
}

bool isNewline(QChar unit)
{
    const char16_t code = unit.unicode();
    return (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

QString trimmedWhitespace(QStringView text)
{
    return trimmed(text, isWhitespace);
}

QString trimmedWhitespaceAndNewlines(QStringView text)
{
    return trimmed(text, [](QChar unit) { return isWhitespace(unit) || isNewline(unit); });
}

QString textFromUtf8(QByteArrayView utf8)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decode(utf8);
}

QStringView firstLine(QStringView text)
{
    const auto end = std::find_if(text.begin(), text.end(), isNewline);
    return text.first(end - text.begin());
}

bool precedesByCodePoint(QStringView left, QStringView right)
{
    return u_strCompare(reinterpret_cast<const UChar*>(left.utf16()),
                        static_cast<int32_t>(left.size()),
                        reinterpret_cast<const UChar*>(right.utf16()),
                        static_cast<int32_t>(right.size()), true) < 0;
}

} // namespace jotwell

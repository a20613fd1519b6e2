#include "Views/Editor/TextScan.h"

namespace jotwell {

namespace {

template <typename IsMember>
qsizetype afterAll(QStringView text, qsizetype from, IsMember isMember)
{
    while (from < text.size()) {
        const CodePoint character = codePointAt(text, from);
        if (!isMember(character.value))
            break;
        from += character.length;
    }
    return from;
}

} // namespace

qsizetype find(QStringView text, char16_t unit, qsizetype from)
{
    const qsizetype place = text.indexOf(QChar(unit), from);
    return place < 0 ? text.size() : place;
}

qsizetype findRepeated(QStringView text, char16_t unit, qsizetype count, qsizetype from)
{
    qsizetype seen = 0;
    qsizetype place = from;
    while (seen < count) {
        place = find(text, unit, from);
        if (place == text.size())
            break;
        seen = place == from ? seen + 1 : 1;
        from = place + 1;
    }
    return seen < count ? text.size() : from - count;
}

qsizetype findNewline(QStringView text, qsizetype from)
{
    return findUnit(text, from, [](char16_t unit) { return isNewline(unit); });
}

qsizetype afterSpaces(QStringView text, qsizetype from)
{
    return afterAll(text, from, isSpace);
}

qsizetype afterWord(QStringView text, qsizetype from)
{
    return afterAll(text, from, isWord);
}

qsizetype afterHyphenatedWord(QStringView text, qsizetype from)
{
    return afterAll(text, from, [](char32_t code) { return code == '-' || isWord(code); });
}

} // namespace jotwell

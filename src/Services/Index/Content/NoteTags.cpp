#include "Services/Index/Content/NoteTags.h"

#include "Services/Index/Content/NextByte.h"
#include "Services/Index/Content/TagMarks.h"
#include "Services/Index/Content/Utf8Classes.h"
#include "Support/CharacterClasses.h"
#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr QByteArrayView fence = "---";
constexpr QByteArrayView listItem = "  - ";

bool isLineStart(const char* place, const char* begin)
{
    return place == begin || isNewline(characterBefore(place).code);
}

// The end of the first line that is exactly "---", or the end of the text.
const char* openingFenceEnd(QByteArrayView text)
{
    const char* end = text.end();
    NextByte dash('-', end);
    const char* place = dash.from(text.begin());
    while (place != end) {
        const char* dashesEnd = std::find_if(place, end, [](char byte) { return byte != '-'; });
        if (dashesEnd - place == fence.size() && isLineStart(place, text.begin()) &&
            lineEnd(dashesEnd, end) == dashesEnd)
            return dashesEnd;
        place = dash.from(dashesEnd);
    }
    return end;
}

QByteArrayView trimmedBlanks(QByteArrayView text)
{
    const char* begin = afterBlanks(text.begin(), text.end());
    const char* end = text.end();
    while (end != begin) {
        const Utf8Character last = characterBefore(end);
        if (!isBlank(last.code))
            break;
        end -= last.length;
    }
    return {begin, end};
}

// Marks of the byte order stay.
QString lowerCased(QByteArrayView text)
{
    return textFromUtf8(text).toLower();
}

// A piece of nothing but blanks gives an empty tag, an empty piece none.
void addPieces(TagCollector& tags, const QByteArray& list)
{
    for (const QByteArray& piece : list.split(',')) {
        if (!piece.isEmpty())
            tags.add(lowerCased(trimmedBlanks(piece)));
    }
}

void addValue(TagCollector& tags, QByteArray line)
{
    line.replace("tags:", "").replace("tag:", "");
    const QByteArrayView value = trimmedBlanks(line);
    if (value.startsWith('[') && value.endsWith(']'))
        addPieces(tags, value.sliced(1).chopped(1).toByteArray());
    else if (!value.isEmpty())
        tags.add(lowerCased(value));
}

void addTagsOfLine(TagCollector& tags, QByteArrayView line)
{
    if (line.startsWith("tags:") || line.startsWith("tag:"))
        addValue(tags, line.toByteArray());
    else if (line.startsWith(listItem))
        tags.add(lowerCased(trimmedBlanks(line.toByteArray().replace(listItem, ""))));
}

} // namespace

TagSet extractFrontmatterTags(QByteArrayView text)
{
    TagCollector tags;
    const char* end = text.end();
    const char* place = openingFenceEnd(text);
    while (place != end) {
        const char* start = place + characterAt(place).length; // behind a newline
        place = lineEnd(start, end);
        const QByteArrayView line(start, place);
        if (line == fence)
            break;
        addTagsOfLine(tags, line);
    }
    return tags.take();
}

TagSet extractContentTags(QByteArrayView text)
{
    return tagsAtMarks(text, [](const char* mark) { return mark[-1] == '`'; });
}

} // namespace jotwell

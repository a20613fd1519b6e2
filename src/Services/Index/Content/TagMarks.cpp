#include "Services/Index/Content/TagMarks.h"

#include "Services/Index/Content/NextByte.h"

#include <algorithm>

namespace jotwell {

namespace {

bool isUpper(char byte)
{
    return byte >= 'A' && byte <= 'Z';
}

bool isOfTag(char byte)
{
    return (byte >= 'a' && byte <= 'z') || isUpper(byte) || (byte >= '0' && byte <= '9') ||
           byte == '_' || byte == '-';
}

char lowerCase(char byte)
{
    return isUpper(byte) ? static_cast<char>(byte - 'A' + 'a') : byte;
}

QString lowerCased(const char* begin, const char* end)
{
    QString tag(end - begin, Qt::Uninitialized);
    std::transform(begin, end, tag.begin(),
                   [](char byte) { return QChar::fromLatin1(lowerCase(byte)); });
    return tag;
}

} // namespace

TagSet tagsAtMarks(QByteArrayView text, HoldsBack holdsBack)
{
    TagCollector tags;
    const char* end = text.end();
    NextByte nextMark('#', end);
    const char* mark = nextMark.from(text.begin());
    for (; mark != end; mark = nextMark.from(mark + 1)) {
        const char* tag = mark + 1;
        const char* tagEnd = std::find_if_not(tag, end, isOfTag);
        if (tagEnd != tag && (mark == text.begin() || !holdsBack(mark)))
            tags.add(lowerCased(tag, tagEnd));
    }
    return tags.take();
}

} // namespace jotwell

#include "Services/Index/Content/Fences.h"

#include "Services/Index/Content/NextByte.h"
#include "Services/Index/Content/Utf8Classes.h"

namespace jotwell {

namespace {

constexpr std::ptrdiff_t fenceLength = 3;

// The next three backticks from `place` on, or the end.
const char* nextFence(const char* place, const char* end)
{
    NextByte backtick('`', end);
    for (place = backtick.from(place); end - place >= fenceLength;
         place = backtick.from(place + 1)) {
        if (place[1] == '`' && place[2] == '`')
            return place;
    }
    return end;
}

} // namespace

std::optional<Fence> Fences::next()
{
    for (;;) {
        const char* begin = nextFence(m_place, m_end);
        if (begin == m_end)
            return std::nullopt;
        const char* word = begin + fenceLength;
        const char* wordEnd = afterWord(word, m_end);
        // More than three backticks: the last three of them are the ones that count.
        m_place = begin + 1;
        if (wordEnd == m_end || *wordEnd != '\n')
            continue;
        const char* content = wordEnd + 1;
        const char* close = nextFence(content, m_end);
        if (close == m_end)
            return std::nullopt; // and so for every later one
        m_place = close + fenceLength;
        Fence fence{begin, m_place, std::nullopt, QByteArrayView(content, close)};
        if (wordEnd != word)
            fence.language = QByteArrayView(word, wordEnd);
        return fence;
    }
}

} // namespace jotwell

#include "Services/Index/Content/MarkPasses.h"

#include "Services/Index/Content/ByteBlock.h"
#include "Services/Index/Content/NextByte.h"
#include "Services/Index/Content/TextCuts.h"
#include "Services/Index/Content/Utf8Classes.h"

#include <algorithm>

namespace jotwell {

namespace {

const char* afterWordsAndDashes(const char* place, const char* end)
{
    for (;;) {
        place = afterWord(place, end);
        if (place == end || *place != '-')
            return place;
        ++place;
    }
}

bool isEmphasis(char byte)
{
    return byte == '*' || byte == '_' || byte == '~';
}

bool hasEmphasis(const ByteBlock& block)
{
    return block.has('*') || block.has('_') || block.has('~');
}

const char* nextEmphasis(const char* place, const char* end)
{
    while (end - place >= ByteBlock::size && !hasEmphasis(ByteBlock(place)))
        place += ByteBlock::size;
    return std::find_if(place, end, isEmphasis);
}

} // namespace

void removeBlockReferences(QByteArray& text)
{
    TextCuts cuts(text);
    const char* end = cuts.end();
    NextByte caret('^', end);
    const char* place = caret.from(cuts.begin());
    for (; place != end; place = caret.from(place)) {
        const char* reference = place++;
        const char* name = place;
        place = afterWordsAndDashes(name, end);
        if (place != name)
            cuts.cut(reference, place);
    }
}

void removeEmphasis(QByteArray& text)
{
    TextCuts cuts(text);
    const char* openTilde = nullptr; // where a tilde that waits for its pair ends, once moved
    const char* end = cuts.end();
    const char* place = nextEmphasis(cuts.begin(), end);
    for (; place != end; place = nextEmphasis(place + 1, end)) {
        if (*place != '~') {
            cuts.cut(place, place + 1);
        } else if (cuts.keepUpTo(place) != openTilde) {
            openTilde = cuts.keepUpTo(place + 1);
        } else {
            cuts.cut(place, place + 1);
            cuts.dropLast();
            openTilde = nullptr;
        }
    }
}

} // namespace jotwell

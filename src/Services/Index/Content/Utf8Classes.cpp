#include "Services/Index/Content/Utf8Classes.h"

#include "Support/CharacterClasses.h"

namespace jotwell {

namespace {

template <typename IsMember>
const char* afterAll(const char* place, const char* end, IsMember isMember)
{
    while (place != end) {
        const Utf8Character character = characterAt(place);
        if (!isMember(character.code))
            break;
        place += character.length;
    }
    return place;
}

unsigned leadByte(char32_t code)
{
    if (code < 0x80)
        return code;
    return code < 0x800 ? 0xC0U | (code >> 6) : 0xE0U | (code >> 12);
}

std::array<ByteKind, 256> madeByteKinds()
{
    std::array<ByteKind, 256> kinds{};
    kinds[0] = ByteKind::zero;
    for (char32_t code = 1; code <= 0xFFFF; ++code) { // no space stands beyond
        if (!isSpace(code))
            continue;
        ByteKind& kind = kinds[leadByte(code)];
        if (code >= 0x80)
            kind = ByteKind::maybeSpace;
        else
            kind = isNewline(code) ? ByteKind::newline : ByteKind::blank;
    }
    return kinds;
}

} // namespace

const std::array<ByteKind, 256>& byteKinds()
{
    static const std::array<ByteKind, 256> kinds = madeByteKinds();
    return kinds;
}

const char* afterBlanks(const char* place, const char* end)
{
    return afterAll(place, end, [](char32_t code) { return isBlank(code); });
}

const char* afterWord(const char* place, const char* end)
{
    return afterAll(place, end, [](char32_t code) { return isWord(code); });
}

const char* afterDigits(const char* place, const char* end)
{
    return afterAll(place, end, [](char32_t code) { return isDigit(code); });
}

const char* lineEnd(const char* place, const char* end)
{
    const std::array<ByteKind, 256>& kinds = byteKinds();
    for (; place != end; ++place) {
        const ByteKind kind = kindOf(kinds, *place);
        if (kind == ByteKind::newline)
            break;
        if (kind == ByteKind::maybeSpace && isNewline(characterAt(place).code))
            break;
    }
    return place;
}

} // namespace jotwell

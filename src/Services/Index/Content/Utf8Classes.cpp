#include "Services/Index/Content/Utf8Classes.h"

#include <unicode/uchar.h>

namespace jotwell {

namespace {

constexpr std::uint32_t markMask = U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK;

unsigned byteAt(const char* place)
{
    return static_cast<unsigned char>(*place);
}

unsigned tailAt(const char* place)
{
    return byteAt(place) & 0x3FU;
}

bool hasCategory(char32_t code, std::uint32_t mask)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(code)) & mask) != 0;
}

bool isAsciiDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isAsciiWord(char byte)
{
    const char lower = static_cast<char>(byte | 0x20);
    return (lower >= 'a' && lower <= 'z') || isAsciiDigit(byte) || byte == '_';
}

bool isAscii(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x80U) == 0;
}

// `isMember` takes an ASCII byte, `isOtherMember` the code of any other character.
template <typename IsMember, typename IsOtherMember>
const char* afterAll(const char* place, const char* end, IsMember isMember,
                     IsOtherMember isOtherMember)
{
    while (place != end) {
        if (isAscii(*place)) {
            if (!isMember(*place))
                break;
            ++place;
            continue;
        }
        const Utf8Character character = characterAt(place);
        if (!isOtherMember(character.code))
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

Utf8Character characterAt(const char* place)
{
    const unsigned lead = byteAt(place);
    if (lead < 0x80)
        return {lead, 1};
    if (lead < 0xE0)
        return {(lead & 0x1FU) << 6 | tailAt(place + 1), 2};
    if (lead < 0xF0)
        return {(lead & 0x0FU) << 12 | tailAt(place + 1) << 6 | tailAt(place + 2), 3};
    return {(lead & 0x07U) << 18 | tailAt(place + 1) << 12 | tailAt(place + 2) << 6 |
                tailAt(place + 3),
            4};
}

Utf8Character characterBefore(const char* place)
{
    do
        --place;
    while ((byteAt(place) & 0xC0U) == 0x80U);
    return characterAt(place);
}

bool isWord(char32_t code)
{
    return u_isUAlphabetic(static_cast<UChar32>(code)) || hasCategory(code, markMask) ||
           code == 0x200C || code == 0x200D;
}

bool isSpace(char32_t code)
{
    return u_isUWhiteSpace(static_cast<UChar32>(code));
}

bool isDigit(char32_t code)
{
    return hasCategory(code, U_GC_ND_MASK);
}

bool isNewline(char32_t code)
{
    return (code >= 0xA && code <= 0xD) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

bool isBlank(char32_t code)
{
    return code == '\t' || hasCategory(code, U_GC_ZS_MASK);
}

bool isWhitespaceOrNewline(char32_t code)
{
    return isNewline(code) || hasCategory(code, U_GC_Z_MASK);
}

const std::array<ByteKind, 256>& byteKinds()
{
    static const std::array<ByteKind, 256> kinds = madeByteKinds();
    return kinds;
}

const char* afterBlanks(const char* place, const char* end)
{
    return afterAll(
        place, end, [](char byte) { return byte == ' ' || byte == '\t'; }, isBlank);
}

const char* afterWord(const char* place, const char* end)
{
    return afterAll(place, end, isAsciiWord, isWord);
}

const char* afterDigits(const char* place, const char* end)
{
    return afterAll(place, end, isAsciiDigit, isDigit);
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

#include "Services/Index/ByteRunFilter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

namespace jotwell {

namespace {

// Vectors of the compiler's own, which it makes of whatever the processor has.
using Block = uchar __attribute__((vector_size(16)));
using BlockWords = quint64 __attribute__((vector_size(16)));

constexpr qsizetype blockSize = sizeof(Block);
constexpr qsizetype stretchSize = 4 * blockSize;
// What may be read behind the first byte of a stretch's last place.
constexpr qsizetype overhang = ByteRunFilter::longestRun;

Block load(const char* bytes)
{
    Block block;
    std::memcpy(&block, bytes, sizeof block);
    return block;
}

// All bits of a place where the byte may be the one looked for, none elsewhere.
Block admitted(const char* bytes, MaskedByte wanted)
{
    return Block((load(bytes) | wanted.mask) == (wanted.value | Block{}));
}

// Which byte of a word with hits comes first in memory.
int firstHit(quint64 word)
{
    const bool isLittle = std::endian::native == std::endian::little;
    return (isLittle ? std::countr_zero(word) : std::countl_zero(word)) / 8;
}

quint64 withoutHit(quint64 word, int place)
{
    const int byte = std::endian::native == std::endian::little ? place : 7 - place;
    return word & ~(quint64(0xFF) << (8 * byte));
}

// How many of a thousand bytes of notes are such, roughly.
qsizetype commonness(MaskedByte byte)
{
    constexpr std::string_view letters = "etaoinsrhldcumfpgwybvkxjqz";
    const auto rank = letters.find(static_cast<char>(byte.value | byte.mask));
    if (rank != std::string_view::npos)
        return 90 - 3 * static_cast<qsizetype>(rank);
    if (byte.value == ' ')
        return 160;
    if (byte.value >= 0xC0)
        return 70; // the lead bytes of one script are much the same
    const qsizetype alone = byte.value >= 0x80 ? 15 : 8;
    return alone << std::min(std::popcount(byte.mask), 4);
}

} // namespace

void MaskedByte::admit(uchar byte)
{
    mask |= (value ^ byte) & ~mask;
    value |= mask;
}

ByteRunFilter::ByteRunFilter(std::span<const MaskedByte> run)
    : m_size(static_cast<qsizetype>(run.size()))
{
    std::array<uchar, longestRun> masks;
    std::array<uchar, longestRun> values;
    masks.fill(0xFF);
    values.fill(0xFF);
    for (std::size_t i = 0; i < run.size(); ++i) {
        masks[i] = run[i].mask;
        values[i] = run[i].value;
    }
    std::memcpy(&m_mask, masks.data(), sizeof m_mask);
    std::memcpy(&m_value, values.data(), sizeof m_value);
    chooseRarest(run);
}

void ByteRunFilter::chooseRarest(std::span<const MaskedByte> run)
{
    std::array<qsizetype, 2> least{1000, 1000};
    for (std::size_t i = 0; i < run.size(); ++i) {
        const qsizetype common = commonness(run[i]);
        if (common < least[0]) {
            least = {common, least[0]};
            m_rarest = {i, m_rarest[0]};
        } else if (common <= least[1]) {
            least[1] = common;
            m_rarest[1] = i;
        }
    }
    m_rarestBytes = {run[m_rarest[0]], run[m_rarest[1]]};
    m_expectedHits = least[0] * least[1];
}

qsizetype ByteRunFilter::indexIn(QByteArrayView text, qsizetype from) const
{
    const char* const bytes = text.data();
    for (; from + stretchSize + overhang <= text.size(); from += stretchSize) {
        const qsizetype index = indexInStretch(bytes + from);
        if (index >= 0)
            return from + index;
    }
    // The rest is looked at in a copy that can be read beyond its end.
    while (from + m_size <= text.size()) {
        std::array<char, stretchSize + overhang> rest{};
        const qsizetype left = std::min<qsizetype>(text.size() - from, rest.size());
        std::memcpy(rest.data(), bytes + from, static_cast<std::size_t>(left));
        const qsizetype index = indexInStretch(rest.data());
        if (index >= 0)
            return index + m_size <= left ? from + index : -1;
        from += stretchSize;
    }
    return -1;
}

// In the first `stretchSize` places there.
qsizetype ByteRunFilter::indexInStretch(const char* bytes) const
{
    const char* const first = bytes + m_rarest[0];
    const char* const second = bytes + m_rarest[1];
    const auto [a, b] = m_rarestBytes;
    const auto hits = [&](qsizetype at) {
        return admitted(first + at, a) & admitted(second + at, b);
    };
    const auto any =
        BlockWords(hits(0) | hits(blockSize) | hits(2 * blockSize) | hits(3 * blockSize));
    if ((any[0] | any[1]) == 0)
        return -1;
    for (qsizetype at = 0; at < stretchSize; at += blockSize) {
        const qsizetype index = indexInBlock(bytes + at);
        if (index >= 0)
            return at + index;
    }
    return -1;
}

qsizetype ByteRunFilter::indexInBlock(const char* bytes) const
{
    const auto hits = BlockWords(admitted(bytes + m_rarest[0], m_rarestBytes[0]) &
                                 admitted(bytes + m_rarest[1], m_rarestBytes[1]));
    for (int half = 0; half < 2; ++half) {
        for (quint64 word = hits[half]; word != 0;) {
            const int place = firstHit(word);
            if (isAt(bytes + 8 * half + place))
                return 8 * half + place;
            word = withoutHit(word, place);
        }
    }
    return -1;
}

bool ByteRunFilter::isAt(const char* bytes) const
{
    quint64 run = 0;
    std::memcpy(&run, bytes, sizeof run);
    return (run | m_mask) == m_value;
}

} // namespace jotwell

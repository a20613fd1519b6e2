#include "Services/Index/Search/ByteRunPlaces.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace jotwell {

namespace {

// A vector of the compiler's own, which it makes of whatever the processor has.
using Block = uchar __attribute__((vector_size(16)));
using BlockWords = quint64 __attribute__((vector_size(16)));

// How far ahead of the search a text is fetched: texts are too short and too many for the processor
// to see it coming.
constexpr qsizetype bytesAhead = 512;

Block load(const void* bytes)
{
    Block block;
    std::memcpy(&block, bytes, sizeof block);
    return block;
}

bool isAny(Block block)
{
    const auto words = BlockWords(block);
    return (words[0] | words[1]) != 0;
}

constexpr bool isLittleEndian = std::endian::native == std::endian::little;

// Which byte of a word with hits comes first in memory.
int firstHitOf(quint64 word)
{
    return (isLittleEndian ? std::countr_zero(word) : std::countl_zero(word)) / 8;
}

quint64 withoutHit(quint64 word, int place)
{
    return word & ~(quint64(0xFF) << (8 * (isLittleEndian ? place : 7 - place)));
}

} // namespace

// The two bytes that are looked for.
struct ByteRunPlaces::RarePair {
    RarePair(const ByteRunFilter& run, const char* text)
        : first(text + run.m_rarest[0].place), firstMask(load(run.m_rarest[0].masks.data())),
          firstValue(load(run.m_rarest[0].values.data())), second(text + run.m_rarest[1].place),
          secondMask(load(run.m_rarest[1].masks.data())),
          secondValue(load(run.m_rarest[1].values.data()))
    {
    }

    // All bits of each place of a block that has both.
    [[nodiscard]] Block hitsFrom(qsizetype place) const
    {
        const Block firstBytes = load(first + place) | firstMask;
        const Block secondBytes = load(second + place) | secondMask;
        return Block(firstBytes == firstValue) & Block(secondBytes == secondValue);
    }

    const char* first;
    Block firstMask;
    Block firstValue;
    const char* second;
    Block secondMask;
    Block secondValue;
};

ByteRunPlaces::ByteRunPlaces(const ByteRunFilter& run, QByteArrayView text)
    : m_run(run), m_bytes(text.data()), m_size(text.size()), m_overhang(run.m_size - 1)
{
}

qsizetype ByteRunPlaces::next()
{
    if (m_size < blockSize + m_overhang)
        return nextInFew();
    do {
        for (qsizetype place = nextHit(); place >= 0; place = nextHit()) {
            if (isRunAt(place))
                return place;
        }
    } while (findHits());
    return -1;
}

// One by one, in a text that is too short for a block.
qsizetype ByteRunPlaces::nextInFew()
{
    const ByteRunFilter::RareByte& rarest = m_run.m_rarest[0];
    while (m_next + m_overhang < m_size) {
        const qsizetype place = m_next++;
        const auto byte = static_cast<uchar>(m_bytes[place + qsizetype(rarest.place)]);
        if ((byte | rarest.masks[0]) == rarest.values[0] && isRunAt(place))
            return place;
    }
    return -1;
}

qsizetype ByteRunPlaces::nextHit()
{
    for (; m_word < m_endOfWords; ++m_word) {
        quint64& hits = m_hits[m_word];
        if (hits != 0) {
            const int place = firstHitOf(hits);
            hits = withoutHit(hits, place);
            return m_firstPlace + static_cast<qsizetype>(8 * m_word) + place;
        }
    }
    return -1;
}

bool ByteRunPlaces::findHits()
{
    const RarePair pair(m_run, m_bytes);
    m_word = 0;
    return findHitsInBlocks(pair) || findHitsInRest(pair);
}

bool ByteRunPlaces::findHitsInBlocks(const RarePair& pair)
{
    constexpr qsizetype stretch = blocksAtOnce * blockSize;
    qsizetype place = m_next;
    for (; place + stretch + m_overhang <= m_size; place += stretch) {
        __builtin_prefetch(m_bytes + place + bytesAhead);
        const std::array<Block, blocksAtOnce> hits{
            pair.hitsFrom(place), pair.hitsFrom(place + blockSize),
            pair.hitsFrom(place + 2 * blockSize), pair.hitsFrom(place + 3 * blockSize)};
        if (isAny((hits[0] | hits[1]) | (hits[2] | hits[3]))) {
            std::memcpy(m_hits.data(), hits.data(), sizeof hits);
            m_endOfWords = blocksAtOnce * wordsPerBlock;
            m_firstPlace = place;
            m_next = place + stretch;
            return true;
        }
    }
    m_next = place;
    return false;
}

bool ByteRunPlaces::findHitsInRest(const RarePair& pair)
{
    while (m_next + m_overhang < m_size) {
        // The last block takes in places before it, to be a whole one.
        m_firstPlace = std::min(m_next, m_size - m_overhang - blockSize);
        m_next = m_firstPlace + blockSize;
        const Block hits = pair.hitsFrom(m_firstPlace);
        if (isAny(hits)) {
            std::memcpy(m_hits.data(), &hits, sizeof hits);
            m_endOfWords = wordsPerBlock;
            return true;
        }
    }
    return false;
}

bool ByteRunPlaces::isRunAt(qsizetype place) const
{
    quint64 bytes = 0;
    const qsizetype readable = std::min(qsizetype(sizeof bytes), m_size - place);
    if (readable == sizeof bytes)
        std::memcpy(&bytes, m_bytes + place, sizeof bytes);
    else
        std::memcpy(&bytes, m_bytes + place, static_cast<std::size_t>(readable));
    return (bytes | m_run.m_mask) == m_run.m_value;
}

} // namespace jotwell

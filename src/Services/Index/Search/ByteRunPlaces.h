#pragma once

#include "Services/Index/Search/ByteRunFilter.h"

#include <QByteArrayView>

#include <array>

namespace jotwell {

/// The places of a text where a run of bytes lies, from its beginning to its end. Each at least
/// once: the last ones may come again. Text and run must live as long. One thread.
class ByteRunPlaces {
public:
    ByteRunPlaces(const ByteRunFilter& run, QByteArrayView text);
    ByteRunPlaces(const ByteRunPlaces&) = delete;
    ByteRunPlaces& operator=(const ByteRunPlaces&) = delete;

    /// -1 when there are no more.
    [[nodiscard]] qsizetype next();

private:
    struct RarePair;
    static constexpr qsizetype blockSize = 16;
    static constexpr qsizetype blocksAtOnce = 4;
    static constexpr std::size_t wordsPerBlock = blockSize / sizeof(quint64);

    [[nodiscard]] qsizetype nextInFew();
    [[nodiscard]] qsizetype nextHit();
    [[nodiscard]] bool findHits();
    [[nodiscard]] bool findHitsInBlocks(const RarePair& pair);
    [[nodiscard]] bool findHitsInRest(const RarePair& pair);
    [[nodiscard]] bool isRunAt(qsizetype place) const;

    const ByteRunFilter& m_run;
    const char* const m_bytes;
    const qsizetype m_size;     ///< of the text
    const qsizetype m_overhang; ///< of the run over its first byte
    qsizetype m_next = 0;       ///< the place from which on nothing has been looked at
    /// A byte of ones for each place from `m_firstPlace` on that has both rare bytes.
    std::array<quint64, blocksAtOnce * wordsPerBlock> m_hits;
    qsizetype m_firstPlace = 0;
    std::size_t m_word = 0; ///< the first one with hits that haven't been given
    std::size_t m_endOfWords = 0;
};

} // namespace jotwell

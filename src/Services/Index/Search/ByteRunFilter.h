#pragma once

#include <QByteArrayView>

#include <array>
#include <span>

namespace jotwell {

/// A byte as it may stand in a text: any that equals `value` once the bits of `mask` are set.
struct MaskedByte {
    uchar mask = 0;
    uchar value = 0;

    /// Takes one more byte in, and perhaps others with it.
    void admit(uchar byte);
    bool operator==(const MaskedByte&) const = default;
};

/// A short run of bytes to be found in texts by `ByteRunPlaces`, which looks at many places at a
/// time for the two bytes of the run that are the rarest in notes, and at the others only where
/// those are. Immutable: any thread.
class ByteRunFilter {
public:
    static constexpr std::size_t longestRun = 8;

    /// A run of one to `longestRun` bytes.
    explicit ByteRunFilter(std::span<const MaskedByte> run);

    /// In how many of a million places of a note the two bytes may be expected: a rough guess.
    [[nodiscard]] qsizetype expectedHits() const { return m_expectedHits; }

private:
    friend class ByteRunPlaces;

    struct RareByte {
        std::size_t place = 0; ///< in the run
        std::array<uchar, 16> masks{};
        std::array<uchar, 16> values{};
    };

    void chooseRarest(std::span<const MaskedByte> run);

    qsizetype m_size;
    std::array<RareByte, 2> m_rarest;
    quint64 m_mask = 0; ///< of the whole run, as its bytes lie in memory
    quint64 m_value = 0;
    qsizetype m_expectedHits = 0;
};

} // namespace jotwell

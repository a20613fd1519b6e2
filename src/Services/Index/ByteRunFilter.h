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

/// Finds the places of a text where a short run of bytes may stand. It looks at 64 places at a time
/// for the two bytes of the run that are the rarest in notes, and at the others only where those
/// are. Immutable: any thread.
class ByteRunFilter {
public:
    static constexpr std::size_t longestRun = 8;

    /// A run of one to `longestRun` bytes.
    explicit ByteRunFilter(std::span<const MaskedByte> run);

    /// The first place at `from` or behind it where the run lies wholly in the text; -1 for none.
    [[nodiscard]] qsizetype indexIn(QByteArrayView text, qsizetype from) const;

    /// In how many of a million places of a note the two bytes may be expected: a rough guess.
    [[nodiscard]] qsizetype expectedHits() const { return m_expectedHits; }

private:
    void chooseRarest(std::span<const MaskedByte> run);
    [[nodiscard]] qsizetype indexInStretch(const char* bytes) const;
    [[nodiscard]] qsizetype indexInBlock(const char* bytes) const;
    [[nodiscard]] bool isAt(const char* bytes) const;

    qsizetype m_size;
    std::array<std::size_t, 2> m_rarest{}; ///< places in the run
    std::array<MaskedByte, 2> m_rarestBytes{};
    quint64 m_mask = ~quint64(0); ///< of the whole run, as its bytes lie in memory
    quint64 m_value = ~quint64(0);
    qsizetype m_expectedHits = 0;
};

} // namespace jotwell

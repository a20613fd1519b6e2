#pragma once

#include <cstdint>
#include <cstring>

namespace jotwell {

/// Eight bytes of a text at once. The questions are answered for all of them, and exactly.
class ByteBlock {
public:
    static constexpr std::ptrdiff_t size = 8;

    explicit ByteBlock(const char* place) { std::memcpy(&m_bytes, place, size); }

    void writeTo(char* place) const { std::memcpy(place, &m_bytes, size); }

    [[nodiscard]] bool has(char byte) const { return hasZero(m_bytes ^ eachOf(byte)); }
    /// Whether a byte is below 0x20 or no ASCII.
    [[nodiscard]] bool hasControlOrNonAscii() const
    {
        return ((m_bytes | (m_bytes - eachOf(' '))) & highBits) != 0;
    }
    /// Whether `byte` stands in both at the same place.
    [[nodiscard]] bool sharesWith(const ByteBlock& other, char byte) const
    {
        return hasZero((m_bytes ^ eachOf(byte)) | (other.m_bytes ^ eachOf(byte)));
    }

private:
    static constexpr std::uint64_t lowBits = 0x0101'0101'0101'0101;
    static constexpr std::uint64_t highBits = lowBits << 7U;

    static constexpr std::uint64_t eachOf(char byte)
    {
        return lowBits * static_cast<unsigned char>(byte);
    }
    static constexpr bool hasZero(std::uint64_t bytes)
    {
        return ((bytes - lowBits) & ~bytes & highBits) != 0;
    }

    std::uint64_t m_bytes;
};

} // namespace jotwell

#pragma once

#include <cstring>

namespace jotwell {

/// Finds the next place of a byte, for places that are asked for in ascending order: however many
/// ask, the text is gone through once.
class NextByte {
public:
    NextByte(char byte, const char* end) : m_byte(byte), m_end(end) {}

    /// The first place from `place` on, or the end of the text.
    [[nodiscard]] const char* from(const char* place)
    {
        if (!m_found || m_found < place)
            m_found = search(place);
        return m_found;
    }

private:
    [[nodiscard]] const char* search(const char* place) const
    {
        const auto length = static_cast<std::size_t>(m_end - place);
        const void* found = std::memchr(place, m_byte, length);
        return found ? static_cast<const char*>(found) : m_end;
    }

    char m_byte;
    const char* m_end;
    const char* m_found = nullptr;
};

} // namespace jotwell

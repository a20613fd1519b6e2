#pragma once

#include <QByteArray>

#include <cstring>

namespace jotwell {

/// Takes stretches out of a text where it lies, from front to back, at the cost of one move of what
/// stays. Whoever looks for the next stretch may read on from the end of the last one: nothing
/// behind it has moved yet. The text has its new length once this is gone.
class TextCuts {
public:
    explicit TextCuts(QByteArray& text)
        : m_text(text), m_begin(text.data()), m_write(m_begin), m_kept(m_begin),
          m_end(m_begin + text.size())
    {
    }
    ~TextCuts()
    {
        keepUpTo(m_end);
        m_text.truncate(m_write - m_begin);
    }
    TextCuts(const TextCuts&) = delete;
    TextCuts& operator=(const TextCuts&) = delete;

    [[nodiscard]] char* begin() const { return m_begin; }
    [[nodiscard]] char* end() const { return m_end; }
    /// The same place, to write to. What was cut or settled must be left alone.
    [[nodiscard]] char* at(const char* place) const { return m_begin + (place - m_begin); }

    /// Takes out what stands between two places of the old text.
    void cut(const char* from, const char* to)
    {
        keepUpTo(from);
        m_kept = to;
    }
    /// Settles what comes before `place`, and gives where its end lies now.
    const char* keepUpTo(const char* place)
    {
        const auto length = static_cast<std::size_t>(place - m_kept);
        if (m_write != m_kept)
            std::memmove(m_write, m_kept, length);
        m_write += length;
        m_kept = place;
        return m_write;
    }
    /// Takes out the last byte that was settled.
    void dropLast() { --m_write; }

private:
    QByteArray& m_text;
    char* m_begin;
    char* m_write;      // the end of what is settled
    const char* m_kept; // the start of what isn't
    char* m_end;
};

} // namespace jotwell

#include "Views/Editor/EmojiRanges.h"

#include "Support/CharacterClasses.h"
#include "Views/Editor/TextScan.h"

namespace jotwell {

namespace {

constexpr char32_t joiner = 0x200D;
constexpr char32_t enclosingKeycap = 0x20E3;
constexpr char32_t noEntry = 0x20E0; ///< the circle with a bar across what it stands on
constexpr char32_t textSelector = 0xFE0E;
constexpr char32_t emojiSelector = 0xFE0F;
constexpr char32_t firstTag = 0xE0020;
constexpr char32_t lastTag = 0xE007E;
constexpr char32_t endOfTags = 0xE007F;

bool has(char32_t code, UProperty property)
{
    return u_hasBinaryProperty(static_cast<UChar32>(code), property) != 0;
}

// Every emoji has such a unit, or a selector behind it.
bool maybeEmoji(char16_t unit)
{
    return (unit >= 0x231A && unit <= 0x2B55) || (unit >= 0xD83C && unit <= 0xD83E) ||
           unit == emojiSelector;
}

struct Sequence {
    qsizetype end = 0;
    bool isEmoji = false;
};

/// Reads one sequence, from its first character on.
class SequenceReader {
public:
    SequenceReader(QStringView text, qsizetype start) : m_text(text) { m_sequence.end = start; }

    Sequence read()
    {
        while (readElement() && isAt(joiner) && joinsAt(m_sequence.end + 1))
            take(joiner);
        return m_sequence;
    }

private:
    [[nodiscard]] char32_t next() const { return codeAt(m_sequence.end); }
    [[nodiscard]] char32_t codeAt(qsizetype place) const
    {
        return place < m_text.size() ? codePointAt(m_text, place).value : U'\0';
    }
    [[nodiscard]] bool isAt(char32_t code) const { return next() == code; }
    [[nodiscard]] bool joinsAt(qsizetype place) const
    {
        if (place >= m_text.size())
            return false;
        const CodePoint character = codePointAt(m_text, place);
        return has(character.value, UCHAR_EXTENDED_PICTOGRAPHIC) &&
               codeAt(place + character.length) != textSelector;
    }

    void takeOne() { m_sequence.end += codePointAt(m_text, m_sequence.end).length; }
    bool take(char32_t code)
    {
        const bool isThere = isAt(code);
        if (isThere)
            takeOne();
        return isThere;
    }
    bool take(UProperty property)
    {
        const bool isThere = has(next(), property);
        if (isThere)
            takeOne();
        return isThere;
    }

    // Gives whether others may be joined to it.
    bool readElement()
    {
        const char32_t base = next();
        takeOne();
        if (take(textSelector))
            return false;
        if (take(emojiSelector) || has(base, UCHAR_EMOJI_PRESENTATION))
            m_sequence.isEmoji = true;
        if (has(base, UCHAR_REGIONAL_INDICATOR))
            take(UCHAR_REGIONAL_INDICATOR);
        if (has(base, UCHAR_EMOJI_MODIFIER_BASE) && take(UCHAR_EMOJI_MODIFIER))
            m_sequence.isEmoji = true;
        readMarks();
        return true;
    }

    void readMarks()
    {
        if (!take(enclosingKeycap))
            take(noEntry);
        qsizetype end = m_sequence.end;
        while (codeAt(end) >= firstTag && codeAt(end) <= lastTag)
            end += 2;
        if (end > m_sequence.end && codeAt(end) == endOfTags)
            m_sequence.end = end + 2;
    }

    QStringView m_text;
    Sequence m_sequence;
};

} // namespace

std::vector<TextRange> emojiRanges(QStringView text)
{
    std::vector<TextRange> ranges;
    qsizetype done = 0;
    for (qsizetype place = findUnit(text, 0, maybeEmoji); place < text.size();
         place = findUnit(text, done, maybeEmoji)) {
        const bool isSelector = text[place] == QChar(emojiSelector);
        const qsizetype start =
            isSelector && place > done ? place - codePointBefore(text, place).length : place;
        if (!has(codePointAt(text, start).value, UCHAR_EMOJI)) {
            done = place + 1;
            continue;
        }
        const Sequence sequence = SequenceReader(text, start).read();
        done = sequence.end;
        if (!sequence.isEmoji)
            continue;
        if (!ranges.empty() && ranges.back().end() == start)
            ranges.back().length += done - start;
        else
            ranges.push_back({start, done - start});
    }
    return ranges;
}

} // namespace jotwell

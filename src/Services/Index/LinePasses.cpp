#include "Services/Index/LinePasses.h"

#include "Services/Index/TextCuts.h"
#include "Services/Index/Utf8Classes.h"

#include <algorithm>

namespace jotwell {

namespace {

const char* afterHeadingMark(const char* line, const char* end)
{
    constexpr std::ptrdiff_t deepest = 6;
    const char* marksEnd = std::find_if(line, end, [](char byte) { return byte != '#'; });
    if (marksEnd == line || marksEnd - line > deepest)
        return line;
    const char* text = afterBlanks(marksEnd, end);
    return text == marksEnd ? line : text;
}

bool isLineEnd(const char* place, const char* end)
{
    return place == end || isNewline(characterAt(place).code);
}

const char* afterRule(const char* line, const char* end)
{
    constexpr std::ptrdiff_t shortest = 3;
    const char* dashesEnd = std::find_if(line, end, [](char byte) { return byte != '-'; });
    const bool isRule = dashesEnd - line >= shortest && isLineEnd(dashesEnd, end);
    return isRule ? dashesEnd : line;
}

// Where a list's mark is followed by blanks, the place behind them.
const char* afterMarkAndBlanks(const char* line, const char* markEnd, const char* end)
{
    const char* text = afterBlanks(markEnd, end);
    return text == markEnd ? line : text;
}

const char* afterListMark(const char* line, const char* end)
{
    const char* mark = afterBlanks(line, end);
    const bool isMark = mark != end && (*mark == '-' || *mark == '+' || *mark == '*');
    return isMark ? afterMarkAndBlanks(line, mark + 1, end) : line;
}

const char* afterNumber(const char* line, const char* end)
{
    const char* number = afterBlanks(line, end);
    const char* numberEnd = afterDigits(number, end);
    const bool isMark = numberEnd != number && numberEnd != end && *numberEnd == '.';
    return isMark ? afterMarkAndBlanks(line, numberEnd + 1, end) : line;
}

const char* afterQuoteMark(const char* line, const char* end)
{
    if (line == end || *line != '>')
        return line;
    const char* text = line + 1;
    if (text == end)
        return text;
    const Utf8Character first = characterAt(text);
    return isBlank(first.code) ? text + first.length : text;
}

// Where what is left of the line begins, each mark looked for behind the one before it.
const char* afterLineMarks(const char* line, const char* end)
{
    line = afterHeadingMark(line, end);
    line = afterRule(line, end);
    line = afterListMark(line, end);
    line = afterNumber(line, end);
    return afterQuoteMark(line, end);
}

// Writes a text again over itself, word by word. What is written never overtakes what is read.
class Flattener {
public:
    Flattener(QByteArray& text, LineMarks marks)
        : m_marks(marks), m_write(text.data()), m_read(m_write), m_end(m_write + text.size())
    {
    }

    // Gives the end of what is written.
    const char* run()
    {
        startLine();
        skipSpaces();
        while (m_read != m_end) {
            if (m_words++ > 0)
                *m_write++ = ' ';
            copyWord();
            skipSpaces();
        }
        return m_write;
    }
    [[nodiscard]] qint64 words() const { return m_words; }

private:
    void startLine()
    {
        if (m_marks == LineMarks::remove)
            m_read = afterLineMarks(m_read, m_end);
    }
    void skipSpaces();
    void copyWord();

    const std::array<ByteKind, 256>& m_kinds = byteKinds();
    LineMarks m_marks;
    char* m_write;
    const char* m_read;
    const char* m_end;
    qint64 m_words = 0;
};

void Flattener::skipSpaces()
{
    while (m_read != m_end) {
        const ByteKind kind = kindOf(m_kinds, *m_read);
        if (kind == ByteKind::text || kind == ByteKind::zero)
            return;
        const Utf8Character character = characterAt(m_read);
        if (kind == ByteKind::maybeSpace && !isSpace(character.code))
            return;
        m_read += character.length;
        if (isNewline(character.code))
            startLine();
    }
}

void Flattener::copyWord()
{
    for (;;) {
        ByteKind kind = kindOf(m_kinds, *m_read);
        while (kind == ByteKind::text) {
            *m_write++ = *m_read++;
            kind = kindOf(m_kinds, *m_read); // a zero stands behind the text
        }
        const bool isInside = kind == ByteKind::zero ? m_read != m_end
                                                     : kind == ByteKind::maybeSpace &&
                                                           !isSpace(characterAt(m_read).code);
        if (!isInside)
            return;
        *m_write++ = *m_read++;
    }
}

} // namespace

void removeLineMarks(QByteArray& text)
{
    TextCuts cuts(text);
    const char* end = cuts.end();
    for (char* line = cuts.begin();;) {
        cuts.cut(line, afterLineMarks(line, end));
        line += lineEnd(line, end) - line;
        if (line == end)
            return;
        const int newlineLength = characterAt(line).length;
        *line = '\n';
        cuts.cut(line + 1, line + newlineLength);
        line += newlineLength;
    }
}

qint64 flatten(QByteArray& text, LineMarks marks)
{
    Flattener flattener(text, marks);
    text.truncate(flattener.run() - text.constData());
    return flattener.words();
}

} // namespace jotwell

#include "Services/Index/Content/LinePasses.h"

#include "Services/Index/Content/ByteBlock.h"
#include "Services/Index/Content/TextCuts.h"
#include "Services/Index/Content/Utf8Classes.h"
#include "Support/CharacterClasses.h"

#include <algorithm>

namespace jotwell {

namespace {

// Where a mark is followed by blanks, the place behind them.
const char* afterMarkAndBlanks(const char* line, const char* markEnd, const char* end)
{
    const char* text = afterBlanks(markEnd, end);
    return text == markEnd ? line : text;
}

const char* afterHeadingMark(const char* line, const char* end)
{
    constexpr std::ptrdiff_t deepest = 6;
    const char* marksEnd = std::find_if(line, end, [](char byte) { return byte != '#'; });
    const bool isMark = marksEnd != line && marksEnd - line <= deepest;
    return isMark ? afterMarkAndBlanks(line, marksEnd, end) : line;
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

// Of list marks, asterisks are gone by now.
const char* afterListMark(const char* line, const char* end)
{
    const char* mark = afterBlanks(line, end);
    const bool isMark = mark != end && (*mark == '-' || *mark == '+');
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
    const char* run();

private:
    void startLine()
    {
        if (m_marks == LineMarks::remove)
            m_read = afterLineMarks(m_read, m_end);
    }
    void skipSpaces();
    void copyPlainBlocks();
    void copyWord();

    const std::array<ByteKind, 256>& m_kinds = byteKinds();
    LineMarks m_marks;
    char* m_write;
    const char* m_read;
    const char* m_end;
};

const char* Flattener::run()
{
    startLine();
    skipSpaces();
    while (m_read != m_end) {
        copyPlainBlocks();
        copyWord();
        skipSpaces();
        if (m_read != m_end)
            *m_write++ = ' ';
    }
    return m_write;
}

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

// Most of most texts is ASCII words with one blank between them. To be called at a word; ends
// inside one or behind it.
void Flattener::copyPlainBlocks()
{
    const char* start = m_read;
    while (m_end - m_read >= ByteBlock::size) {
        const ByteBlock block(m_read);
        const ByteBlock next(m_read + 1); // up to the zero behind the text
        if (block.hasControlOrNonAscii() || block.sharesWith(next, ' '))
            break;
        block.writeTo(m_write);
        m_read += ByteBlock::size;
        m_write += ByteBlock::size;
    }
    const bool isBehindBlank = m_read != start && m_write[-1] == ' ';
    if (isBehindBlank) {
        --m_read;
        --m_write;
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
    return text.isEmpty() ? 0 : text.count(' ') + 1;
}

} // namespace jotwell

#include "Services/ContentProcessor.h"

#include "Services/Index/Content/Fences.h"
#include "Services/Index/Content/LinePasses.h"
#include "Services/Index/Content/LinkPasses.h"
#include "Services/Index/Content/MarkPasses.h"
#include "Services/Index/Content/NextByte.h"
#include "Services/Index/Content/TagMarks.h"
#include "Services/Index/Content/Utf8Classes.h"
#include "Support/CharacterClasses.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr QByteArrayView codeMark = " [code] ";

// Calls `found` for each fenced block, which stands as a mark in what this gives.
template <typename Found>
QByteArray withoutFences(QByteArrayView text, Found found)
{
    QByteArray result;
    result.reserve(text.size());
    const char* copied = text.begin();
    Fences fences(text);
    while (const std::optional<Fence> fence = fences.next()) {
        result.append(QByteArrayView(copied, fence->begin)).append(codeMark);
        copied = fence->end;
        found(*fence);
    }
    return result.append(QByteArrayView(copied, text.end()));
}

// The backticks of inline code become blanks.
void replaceInlineCode(QByteArray& text)
{
    char* begin = text.data();
    const char* end = begin + text.size();
    NextByte backtick('`', end);
    const char* opening = backtick.from(begin);
    while (opening != end) {
        const char* close = backtick.from(opening + 1);
        if (close == end)
            return;
        const bool holdsNothing = close == opening + 1;
        if (holdsNothing) {
            opening = close;
            continue;
        }
        begin[opening - begin] = ' ';
        begin[close - begin] = ' ';
        opening = backtick.from(close + 1);
    }
}

qsizetype newlines(const char* begin, const char* end)
{
    qsizetype count = 0;
    for (begin = lineEnd(begin, end); begin != end; begin = lineEnd(begin, end)) {
        begin += characterAt(begin).length;
        ++count;
    }
    return count;
}

// Tells which lines the fenced blocks of a text are on, asked from front to back.
class BlockLines {
public:
    explicit BlockLines(QByteArrayView text) : m_counted(text.begin()) {}

    CodeBlock blockOf(const Fence& fence)
    {
        m_line += newlines(m_counted, fence.begin);
        m_counted = fence.begin;
        const qsizetype lines = newlines(fence.content.begin(), fence.content.end()) + 1;
        CodeBlock block{std::nullopt, fence.content.toByteArray(), m_line, m_line + lines};
        if (fence.language)
            block.language = fence.language->toByteArray();
        return block;
    }

private:
    const char* m_counted;
    qsizetype m_line = 1;
};

void removeSyntaxOfText(QByteArray& text)
{
    replaceWikiLinks(text);
    removeEmbeds(text);
    replaceMarkdownLinks(text);
    replaceImages(text);
    removeBlockReferences(text);
    removeEmphasis(text);
}

bool isWordOrSlash(char32_t code)
{
    return code == '/' || isWord(code);
}

} // namespace

ProcessedContent ContentProcessor::processContent(QByteArrayView raw)
{
    const WithoutCode text = extractCodeBlocks(raw);
    const QByteArray plain = removeObsidianSyntax(text.text);
    const QByteArray cleaned = normalizeText(plain);
    return {cleaned, text.codeBlocks, extractWikiLinks(text.text), extractHashtags(plain),
            countWords(cleaned)};
}

// Hashtags are the same on one line: no space is part of one or holds one back.
CleanedContent ContentProcessor::cleanedContent(QByteArrayView raw)
{
    QByteArray text = withoutFences(raw, [](const Fence&) {});
    replaceInlineCode(text);
    removeSyntaxOfText(text);
    const qint64 words = flatten(text, LineMarks::remove);
    return {QByteArray(text.constData(), text.size()), extractHashtags(text), words};
}

ContentProcessor::WithoutCode ContentProcessor::extractCodeBlocks(QByteArrayView text)
{
    WithoutCode result;
    BlockLines lines(text);
    result.text = withoutFences(
        text, [&](const Fence& fence) { result.codeBlocks.append(lines.blockOf(fence)); });
    replaceInlineCode(result.text);
    return result;
}

QSet<QByteArray> ContentProcessor::extractWikiLinks(QByteArrayView text)
{
    QSet<QByteArray> targets;
    WikiLinks links(text);
    while (const std::optional<WikiLink> link = links.next())
        targets.insert(link->target.toByteArray());
    return targets;
}

QByteArray ContentProcessor::removeObsidianSyntax(QByteArrayView text)
{
    QByteArray plain = text.toByteArray();
    removeSyntaxOfText(plain);
    removeLineMarks(plain);
    return plain;
}

TagSet ContentProcessor::extractHashtags(QByteArrayView text)
{
    return tagsAtMarks(text,
                       [](const char* mark) { return isWordOrSlash(characterBefore(mark).code); });
}

QByteArray ContentProcessor::normalizeText(QByteArrayView text)
{
    QByteArray normal = text.toByteArray();
    flatten(normal, LineMarks::keep);
    return normal;
}

qint64 ContentProcessor::countWords(QByteArrayView text)
{
    qint64 words = 0;
    bool isInWord = false;
    for (const char* place = text.begin(); place != text.end();) {
        const Utf8Character character = characterAt(place);
        const bool isOfWord = !isWhitespaceOrNewline(character.code);
        words += isOfWord && !isInWord ? 1 : 0;
        isInWord = isOfWord;
        place += character.length;
    }
    return words;
}

} // namespace jotwell

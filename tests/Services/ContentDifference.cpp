#include "Services/ContentDifference.h"

#include "Services/ContentProcessor.h"
#include "Services/ContentReference.h"
#include "Services/Index/Content/NoteTags.h"

#include <algorithm>

namespace jotwell {

namespace {

// An unlikely character, so that no two results are shown alike.
constexpr const char* separator = "\uE000";

QByteArray shown(const QByteArray& text)
{
    return text;
}

QByteArray shown(const QString& text)
{
    return text.toUtf8();
}

QByteArray shown(qint64 number)
{
    return QByteArray::number(number);
}

QByteArray shown(const TagSet& tags)
{
    return QByteArray::number(tags.size()) + separator +
           tags.join(QString::fromUtf8(separator)).toUtf8();
}

template <typename Text>
QByteArray shown(const QSet<Text>& texts)
{
    QByteArrayList all;
    for (const Text& text : texts)
        all.append(shown(text));
    std::sort(all.begin(), all.end());
    return QByteArray::number(all.size()) + separator + all.join(separator);
}

template <typename Block>
QByteArray shownBlocks(const QList<Block>& blocks)
{
    QByteArray all;
    for (const Block& block : blocks) {
        all += block.language ? "in " + shown(*block.language) : QByteArray("plain");
        all += separator + shown(block.content) + separator;
        all += QByteArray::number(block.startLine) + "-" + QByteArray::number(block.endLine) +
               separator;
    }
    return all;
}

template <typename Content>
QByteArray shownContent(const Content& content)
{
    return shown(content.cleanedText) + separator + shownBlocks(content.codeBlocks) + separator +
           shown(content.wikiLinks) + separator + shown(content.hashtags) + separator +
           shown(content.wordCount);
}

class Differences {
public:
    void compare(const char* rule, const QByteArray& expected, const QByteArray& actual)
    {
        if (!m_first && expected != actual)
            m_first = ContentDifference{rule, expected, actual};
    }
    [[nodiscard]] const std::optional<ContentDifference>& first() const { return m_first; }

private:
    std::optional<ContentDifference> m_first;
};

void compareCleanedContent(Differences& differences, const reference::ProcessedContent& expected,
                           const CleanedContent& actual)
{
    differences.compare("cleanedContent's text", shown(expected.cleanedText), shown(actual.text));
    differences.compare("cleanedContent's hashtags", shown(expected.hashtags),
                        shown(actual.hashtags));
    differences.compare("cleanedContent's words", shown(expected.wordCount),
                        shown(actual.wordCount));
}

} // namespace

std::optional<ContentDifference> contentDifference(const QString& text)
{
    using Processor = ContentProcessor;
    const QByteArray utf8 = text.toUtf8();
    Differences differences;
    const auto blocks = reference::extractCodeBlocks(text);
    const auto actualBlocks = Processor::extractCodeBlocks(utf8);
    differences.compare("extractCodeBlocks' text", shown(blocks.text), shown(actualBlocks.text));
    differences.compare("extractCodeBlocks", shownBlocks(blocks.codeBlocks),
                        shownBlocks(actualBlocks.codeBlocks));
    differences.compare("extractWikiLinks", shown(reference::extractWikiLinks(text)),
                        shown(Processor::extractWikiLinks(utf8)));
    differences.compare("removeObsidianSyntax", shown(reference::removeObsidianSyntax(text)),
                        shown(Processor::removeObsidianSyntax(utf8)));
    differences.compare("extractHashtags", shown(reference::extractHashtags(text)),
                        shown(Processor::extractHashtags(utf8)));
    differences.compare("normalizeText", shown(reference::normalizeText(text)),
                        shown(Processor::normalizeText(utf8)));
    differences.compare("countWords", shown(reference::countWords(text)),
                        shown(Processor::countWords(utf8)));
    const reference::ProcessedContent content = reference::processContent(text);
    differences.compare("processContent", shownContent(content),
                        shownContent(Processor::processContent(utf8)));
    compareCleanedContent(differences, content, Processor::cleanedContent(utf8));
    return differences.first();
}

std::optional<ContentDifference> tagDifference(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    Differences differences;
    differences.compare("extractFrontmatterTags", shown(reference::extractFrontmatterTags(text)),
                        shown(extractFrontmatterTags(utf8)));
    differences.compare("extractContentTags", shown(reference::extractContentTags(text)),
                        shown(extractContentTags(utf8)));
    return differences.first();
}

} // namespace jotwell

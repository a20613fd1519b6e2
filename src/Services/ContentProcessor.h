#pragma once

#include "Services/Index/TagSet.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QSet>

#include <optional>

namespace jotwell {

/// One fenced block. Texts are UTF-8.
struct CodeBlock {
    std::optional<QByteArray> language; ///< the word behind the opening fence
    QByteArray content;                 ///< what stands between the fence lines, unchanged
    qsizetype startLine = 0;            ///< line of the opening fence, counted from 1
    qsizetype endLine = 0;              ///< `startLine` and the number of lines of `content`

    bool operator==(const CodeBlock&) const = default;
};

/// What is known of one note's text. Texts are UTF-8.
struct ProcessedContent {
    QByteArray cleanedText; ///< the note as plain text, on a single line
    QList<CodeBlock> codeBlocks;
    QSet<QByteArray> wikiLinks; ///< link targets, case kept
    TagSet hashtags;            ///< lower case, without "#"
    qint64 wordCount = 0;
};

/// The part of it that the index keeps.
struct CleanedContent {
    QByteArray text;
    TagSet hashtags;
    qint64 wordCount = 0;
};

/// Turns the Markdown of a note into plain text that can be searched and counted. Pure functions of
/// valid UTF-8, linear in its length whatever it holds; any thread. What they give is what a chain
/// of regular expressions would; its blind spots belong to the format.
class ContentProcessor {
public:
    [[nodiscard]] static ProcessedContent processContent(QByteArrayView raw);
    /// The same without blocks and links, which cost time and which the index doesn't keep.
    [[nodiscard]] static CleanedContent cleanedContent(QByteArrayView raw);

    struct WithoutCode {
        QByteArray text;
        QList<CodeBlock> codeBlocks;
    };
    [[nodiscard]] static WithoutCode extractCodeBlocks(QByteArrayView text);
    [[nodiscard]] static QSet<QByteArray> extractWikiLinks(QByteArrayView text);
    [[nodiscard]] static QByteArray removeObsidianSyntax(QByteArrayView text);
    [[nodiscard]] static TagSet extractHashtags(QByteArrayView text);
    [[nodiscard]] static QByteArray normalizeText(QByteArrayView text);
    [[nodiscard]] static qint64 countWords(QByteArrayView text);
};

} // namespace jotwell

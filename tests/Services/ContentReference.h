#pragma once

#include "Services/Index/TagSet.h"

#include <QList>
#include <QSet>
#include <QString>

#include <optional>

/// The cleaning chain and the tag rules as they are told: regular expressions of ICU, one after
/// another over the whole text. Slow, and quadratic on some texts; what the program does must give
/// the same.
namespace jotwell::reference {

struct CodeBlock {
    std::optional<QString> language;
    QString content;
    qsizetype startLine = 0;
    qsizetype endLine = 0;
};

struct WithoutCode {
    QString text;
    QList<CodeBlock> codeBlocks;
};

struct ProcessedContent {
    QString cleanedText;
    QList<CodeBlock> codeBlocks;
    QSet<QString> wikiLinks;
    TagSet hashtags;
    qint64 wordCount = 0;
};

[[nodiscard]] ProcessedContent processContent(const QString& raw);
[[nodiscard]] WithoutCode extractCodeBlocks(const QString& text);
[[nodiscard]] QSet<QString> extractWikiLinks(const QString& text);
[[nodiscard]] QString removeObsidianSyntax(const QString& text);
[[nodiscard]] TagSet extractHashtags(const QString& text);
[[nodiscard]] QString normalizeText(const QString& text);
[[nodiscard]] qint64 countWords(const QString& text);

[[nodiscard]] TagSet extractFrontmatterTags(const QString& text);
[[nodiscard]] TagSet extractContentTags(const QString& text);

// The sets of characters that texts are split and trimmed by. All are of the basic plane.

[[nodiscard]] bool isOfNewlineSet(QChar unit);
[[nodiscard]] bool isOfBlankSet(QChar unit);
[[nodiscard]] bool isOfWhitespaceSet(QChar unit);

} // namespace jotwell::reference

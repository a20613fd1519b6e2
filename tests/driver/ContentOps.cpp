#include "driver/Operations.h"

#include "Services/Index/Content/NoteTags.h"
#include "Services/Index/ContentHash.h"
#include "driver/IndexJson.h"

namespace jotwell {

void addContentOps(Operations& ops)
{
    ops.add(u"ContentProcessor.processContent", {u"text"},
            [](const QString& text) { return ContentProcessor::processContent(text.toUtf8()); });
    ops.add(u"ContentProcessor.extractCodeBlocks", {u"text"},
            [](const QString& text) { return ContentProcessor::extractCodeBlocks(text.toUtf8()); });
    ops.add(u"ContentProcessor.extractWikiLinks", {u"text"}, [](const QString& text) {
        return toJson(ContentProcessor::extractWikiLinks(text.toUtf8()));
    });
    ops.add(u"ContentProcessor.extractHashtags", {u"text"},
            [](const QString& text) { return ContentProcessor::extractHashtags(text.toUtf8()); });
    ops.add(u"ContentProcessor.removeObsidianSyntax", {u"text"}, [](const QString& text) {
        return textOf(ContentProcessor::removeObsidianSyntax(text.toUtf8()));
    });
    ops.add(u"ContentProcessor.normalizeText", {u"text"}, [](const QString& text) {
        return textOf(ContentProcessor::normalizeText(text.toUtf8()));
    });
    ops.add(u"ContentProcessor.countWords", {u"text"},
            [](const QString& text) { return ContentProcessor::countWords(text.toUtf8()); });
    ops.add(u"TagIndexService.extractFrontmatterTags", {u"text"},
            [](const QString& text) { return extractFrontmatterTags(text.toUtf8()); });
    ops.add(u"TagIndexService.extractContentTags", {u"text"},
            [](const QString& text) { return extractContentTags(text.toUtf8()); });
    ops.add(u"TagIndexService.calculateHash", {u"text"},
            [](const QString& text) { return hashText(calculateHash(text.toUtf8())); });
}

} // namespace jotwell

#include "driver/IndexJson.h"

#include "Support/TextUnits.h"
#include "driver/JsonValues.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace jotwell {

namespace {

// A set as an array: each once, ascending by code point.
QJsonArray setOf(QStringList texts)
{
    std::sort(texts.begin(), texts.end(), precedesByCodePoint);
    texts.erase(std::unique(texts.begin(), texts.end()), texts.end());
    return QJsonArray::fromStringList(texts);
}

QJsonValue nameOf(MatchType type)
{
    switch (type) {
    case MatchType::filename:
        return QStringLiteral("filename");
    case MatchType::tag:
        return QStringLiteral("tag");
    case MatchType::content:
        return QStringLiteral("content");
    case MatchType::fullText:
        return QStringLiteral("fullText");
    }
    Q_UNREACHABLE();
}

QJsonObject objectOf(const CodeBlock& block)
{
    return {{QStringLiteral("language"),
             block.language ? QJsonValue(textOf(*block.language)) : QJsonValue()},
            {QStringLiteral("content"), textOf(block.content)},
            {QStringLiteral("lineRange"), QJsonObject{{QStringLiteral("start"), block.startLine},
                                                      {QStringLiteral("end"), block.endLine}}}};
}

QJsonObject objectOf(const IndexSearchResult& result)
{
    const auto score = result.relevanceScore;
    return {{QStringLiteral("title"), result.title},
            {QStringLiteral("path"), result.path},
            {QStringLiteral("tags"), setOf(result.tags)},
            {QStringLiteral("modificationDate"), toJson(result.modificationDate)},
            {QStringLiteral("matchType"), nameOf(result.matchType)},
            {QStringLiteral("snippet"), toJson(result.snippet)},
            {QStringLiteral("relevanceScore"), score ? QJsonValue(*score) : QJsonValue()}};
}

QJsonObject objectOf(const SearchMetrics& metrics)
{
    return {{QStringLiteral("executionTime"), metrics.executionTime},
            {QStringLiteral("filesScanned"), metrics.filesScanned},
            {QStringLiteral("cacheHit"), metrics.cacheHit},
            {QStringLiteral("resultCount"), metrics.resultCount}};
}

QJsonObject tagsOfNotes(const NoteMap& notes)
{
    QJsonObject tags;
    notes.forEach([&tags](const FileMetadataPtr& note) {
        tags.insert(textOf(note->path), setOf(note->allTags()));
    });
    return tags;
}

QJsonObject notesOfTags(const NoteIndex& index)
{
    QJsonObject notes;
    const auto& tagToFiles = index.tagToFiles();
    for (auto each = tagToFiles.begin(); each != tagToFiles.end(); ++each) {
        QStringList paths;
        for (const FileMetadata* note : *each)
            paths.append(textOf(note->path));
        notes.insert(each.key(), setOf(paths));
    }
    return notes;
}

} // namespace

QString textOf(QByteArrayView utf8)
{
    return textFromUtf8(utf8);
}

QJsonValue toJson(const QList<CodeBlock>& blocks)
{
    QJsonArray array;
    for (const CodeBlock& each : blocks)
        array.append(objectOf(each));
    return array;
}

QJsonValue toJson(const ProcessedContent& content)
{
    return QJsonObject{{QStringLiteral("cleanedText"), textOf(content.cleanedText)},
                       {QStringLiteral("codeBlocks"), toJson(content.codeBlocks)},
                       {QStringLiteral("wikiLinks"), toJson(content.wikiLinks)},
                       {QStringLiteral("hashtags"), setOf(content.hashtags)},
                       {QStringLiteral("wordCount"), content.wordCount}};
}

QJsonValue toJson(const ContentProcessor::WithoutCode& text)
{
    return QJsonObject{{QStringLiteral("text"), textOf(text.text)},
                       {QStringLiteral("codeBlocks"), toJson(text.codeBlocks)}};
}

QJsonValue toJson(const QSet<QByteArray>& texts)
{
    QStringList all;
    for (const QByteArray& each : texts)
        all.append(textOf(each));
    return setOf(all);
}

QJsonValue toJson(const FileMetadata* record)
{
    if (!record)
        return {};
    return QJsonObject{
        {QStringLiteral("path"), textOf(record->path)},
        {QStringLiteral("modificationDate"), toJson(record->modificationDate)},
        {QStringLiteral("fileSize"), record->fileSize},
        {QStringLiteral("contentHash"), hashText(record->contentHash)},
        {QStringLiteral("frontmatterTags"), setOf(record->frontmatterTags)},
        {QStringLiteral("contentTags"), setOf(record->contentTags)},
        {QStringLiteral("allTags"), setOf(record->allTags())},
        {QStringLiteral("title"), textOf(record->title())},
        {QStringLiteral("indexedDate"), toJson(record->indexedDate)},
        {QStringLiteral("fullContent"), textOf(record->fullContent)},
        {QStringLiteral("cleanedContent"), textOf(record->cleanedContent)},
        {QStringLiteral("wordCount"), record->wordCount},
    };
}

QJsonValue toJson(const FileMetadataPtr& record)
{
    return toJson(record.get());
}

QJsonValue toJson(const IndexStatus& status)
{
    switch (status.kind) {
    case IndexStatus::Kind::notStarted:
        return QStringLiteral("notStarted");
    case IndexStatus::Kind::building:
        return QStringLiteral("building");
    case IndexStatus::Kind::ready:
        return QStringLiteral("ready");
    case IndexStatus::Kind::updating:
        return QStringLiteral("updating");
    case IndexStatus::Kind::error:
        return QJsonObject{{QStringLiteral("error"), status.message}};
    }
    Q_UNREACHABLE();
}

QJsonValue toJson(const SearchQuery& query)
{
    return QJsonObject{
        {QStringLiteral("filenameTerms"), QJsonArray::fromStringList(query.filenameTerms)},
        {QStringLiteral("hashtags"), QJsonArray::fromStringList(query.hashtags)}};
}

QJsonValue toJson(const SearchAnswer& answer)
{
    QJsonArray results;
    for (const IndexSearchResult& each : answer.results)
        results.append(objectOf(each));
    return QJsonObject{{QStringLiteral("results"), results},
                       {QStringLiteral("metrics"), objectOf(answer.metrics)}};
}

QJsonValue toJson(const SearchCache& cache, Clock::TimePoint now)
{
    QStringList keys = cache.keys();
    std::sort(keys.begin(), keys.end(), precedesByCodePoint);
    QJsonArray entries;
    for (const QString& key : keys) {
        const CachedSearchResult entry = cache.value(key);
        entries.append(QJsonObject{{QStringLiteral("key"), key},
                                   {QStringLiteral("query"), entry.query},
                                   {QStringLiteral("resultCount"), entry.results.size()},
                                   {QStringLiteral("isExpired"), entry.isExpired(now)}});
    }
    return entries;
}

QJsonValue toJson(const TagCount& tag)
{
    return QJsonObject{{QStringLiteral("tag"), tag.tag}, {QStringLiteral("count"), tag.count}};
}

QJsonValue toJson(const NoteIndex& index)
{
    const QJsonObject tags = tagsOfNotes(index.notes());
    return QJsonObject{{QStringLiteral("tagToFiles"), notesOfTags(index)},
                       {QStringLiteral("fileToTags"), tags},
                       {QStringLiteral("fileMetadata"), setOf(tags.keys())}};
}

} // namespace jotwell

#include "Services/Index/Database/IndexStatements.h"

#include "Services/Index/FileMetadata.h"
#include "Support/Logging.h"
#include "Support/TextUnits.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <limits>

namespace jotwell {

namespace {

constexpr const char* insertContent =
    "    INSERT OR REPLACE INTO content_index \n"
    "    (path, title, content, content_cleaned, tags_json, \n"
    "     modification_date, file_size, content_hash, word_count, indexed_date)\n"
    "    VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

constexpr const char* deleteContent = "DELETE FROM content_index WHERE path = ?";

constexpr const char* selectMatches =
    "    SELECT \n"
    "        c.path,\n"
    "        c.title,\n"
    "        c.tags_json,\n"
    "        c.modification_date,\n"
    "        snippet(content_fts, 2, '<mark>', '</mark>', '...', 30) as snippet,\n"
    "        bm25(content_fts) as rank\n"
    "    FROM content_index c\n"
    "    JOIN content_fts ON c.id = content_fts.rowid\n"
    "    WHERE content_fts MATCH ?\n"
    "    ORDER BY rank\n"
    "    LIMIT 50";

constexpr const char* insertHistory =
    "    INSERT INTO search_history (query, result_count, execution_time_ms, timestamp)\n"
    "    VALUES (?, ?, ?, ?)";

void logFailure(const QString& what, const Database& database)
{
    logError(QStringLiteral("TagIndex"), what + QStringLiteral(": ") + database.errorMessage());
}

// Cut toward 1970.
qint64 wholeSeconds(Clock::TimePoint moment)
{
    return std::chrono::duration_cast<std::chrono::seconds>(moment.time_since_epoch()).count();
}

// Another program may have put any number there.
Clock::TimePoint fromWholeSeconds(qint64 seconds)
{
    constexpr qint64 latest =
        std::numeric_limits<Clock::TimePoint::rep>::max() / Clock::TimePoint::period::den;
    return Clock::TimePoint(std::chrono::seconds(std::clamp(seconds, -latest, latest)));
}

int wordCountOf(const FileMetadata& record)
{
    if (record.wordCount < std::numeric_limits<int>::min() ||
        record.wordCount > std::numeric_limits<int>::max())
        qFatal("The word count %lld is out of range", static_cast<long long>(record.wordCount));
    return static_cast<int>(record.wordCount);
}

QByteArray jsonOf(const TagSet& tags)
{
    return QJsonDocument(QJsonArray::fromStringList(tags)).toJson(QJsonDocument::Compact);
}

QStringList tagsOf(QByteArrayView json)
{
    const QJsonArray array = QJsonDocument::fromJson(json.toByteArray()).array();
    QStringList tags;
    for (const auto& tag : array) {
        if (!tag.isString())
            return {};
        tags.append(tag.toString());
    }
    return tags;
}

IndexSearchResult resultOf(const Statement& row)
{
    IndexSearchResult result;
    result.path = textFromUtf8(row.text(0));
    result.title = textFromUtf8(row.text(1));
    result.tags = tagsOf(row.text(2));
    result.modificationDate = fromWholeSeconds(row.integer(3));
    if (!row.isNull(4))
        result.snippet = textFromUtf8(row.text(4));
    result.relevanceScore = row.real(5);
    result.matchType = MatchType::fullText;
    return result;
}

// The full-text table reads texts from a column of its content table that isn't there, so that any
// query which finds something fails at its first row; it isn't worth looking for that row, which
// can take long. Whoever has added the column gets what is found. Not to be remembered: another
// program may add it at any time, and it is by this failure that SQLite looks.
bool canReadTexts(const Database& database)
{
    return Statement(database.handle(), "SELECT T.tags FROM content_index T").isValid();
}

} // namespace

bool isDamage(int result)
{
    const int primary = result & 0xff;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB;
}

ContentWriter::ContentWriter(Database& database)
    : m_database(database), m_statement(database.handle(), insertContent)
{
}

int ContentWriter::save(const FileMetadata& record)
{
    if (!m_statement.isValid())
        return m_statement.result();
    const QByteArray tags = jsonOf(record.allTags());
    const QByteArray hash = hashText(record.contentHash).toUtf8();
    bind(record, tags, hash);
    const int result = m_statement.step();
    if (result != SQLITE_DONE)
        logFailure(QStringLiteral("Failed to save content to database"), m_database);
    m_statement.reset();
    return result;
}

void ContentWriter::bind(const FileMetadata& record, QByteArrayView tags, QByteArrayView hash)
{
    m_statement.bindText(1, record.path);
    m_statement.bindText(2, record.title());
    m_statement.bindText(3, record.fullContent);
    m_statement.bindText(4, record.cleanedContent);
    m_statement.bindText(5, tags);
    m_statement.bindInt64(6, wholeSeconds(record.modificationDate));
    m_statement.bindInt64(7, record.fileSize);
    m_statement.bindText(8, hash);
    m_statement.bindInt(9, wordCountOf(record));
    m_statement.bindInt64(10, wholeSeconds(record.indexedDate));
}

int removeContent(Database& database, const QByteArray& path)
{
    Statement statement(database.handle(), deleteContent);
    if (!statement.isValid())
        return statement.result();
    statement.bindText(1, path);
    const int result = statement.step();
    if (result != SQLITE_DONE)
        logFailure(QStringLiteral("Failed to remove file from database"), database);
    return result;
}

int searchContent(Database& database, const QString& ftsQuery, IndexSearchResults& rows)
{
    const bool isWorthwhile = canReadTexts(database);
    Statement statement(database.handle(), selectMatches);
    if (!statement.isValid()) {
        logFailure(QStringLiteral("Failed to execute FTS search"), database);
        return statement.result();
    }
    if (!isWorthwhile)
        return SQLITE_DONE;
    const QByteArray query = ftsQuery.toUtf8();
    statement.bindText(1, query);
    int result = statement.step();
    for (; result == SQLITE_ROW; result = statement.step())
        rows.append(resultOf(statement));
    return result;
}

int insertSearchHistory(Database& database, const SearchHistoryEntry& entry)
{
    Statement statement(database.handle(), insertHistory);
    if (!statement.isValid())
        return statement.result();
    statement.bindText(1, entry.query);
    statement.bindInt(2, static_cast<int>(entry.resultCount));
    statement.bindDouble(3, entry.executionTime * 1000.0);
    statement.bindInt64(4, wholeSeconds(entry.timestamp));
    return statement.step();
}

} // namespace jotwell

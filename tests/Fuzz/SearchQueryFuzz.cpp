// Takes any query apart, and gives it to a full-text table as the index does.

#include "Fuzz/FuzzTarget.h"
#include "Services/Index/Search/SearchQuery.h"
#include "Services/Index/Search/SearchReference.h"
#include "Support/Database.h"

#include <cstdlib>

namespace {

using namespace jotwell;

QByteArray joined(const QStringList& pieces)
{
    return (pieces.join(u'\n') + QString::number(pieces.size())).toUtf8();
}

// A database with two notes, which outlives all queries.
Database& fullTextTable()
{
    static Database database = [] {
        Database made;
        made.open(QStringLiteral(":memory:"), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        made.execute("CREATE VIRTUAL TABLE t USING fts5(path UNINDEXED, title, content, tags, "
                     "tokenize = 'porter unicode61');"
                     "INSERT INTO t VALUES ('/a.md', 'Garden', 'Many trees grow here', '[]');"
                     "INSERT INTO t VALUES ('/b.md', 'House', 'Flowers stand here', '[\"a\"]');");
        return made;
    }();
    return database;
}

void searchFor(const QByteArray& ftsQuery)
{
    Statement statement(fullTextTable().handle(),
                        "SELECT snippet(t, 2, '<mark>', '</mark>', '...', 30), bm25(t) AS rank "
                        "FROM t WHERE t MATCH ? ORDER BY rank LIMIT 50");
    if (!statement.isValid())
        std::abort();
    statement.bindText(1, ftsQuery);
    int rows = 0;
    while (statement.step() == SQLITE_ROW)
        ++rows;
    if (rows > 2)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString query = fuzzText(data, size);
    const QByteArray input = query.toUtf8();
    const SearchQuery parsed = parseSearchQuery(query);
    const SearchQuery plain = plainParseSearchQuery(query);
    requireSame("words", input, joined(plain.filenameTerms), joined(parsed.filenameTerms));
    requireSame("tags", input, joined(plain.hashtags), joined(parsed.hashtags));
    requireSame("terms", input, joined(plainContentTerms(query)), joined(contentTerms(query)));
    const QByteArray prepared = prepareFTSQuery(query).toUtf8();
    requireSame("full-text query", input, plainPrepareFTSQuery(query).toUtf8(), prepared);
    searchFor(prepared);
    return 0;
}

#include "Services/Index/Search/IndexSearch.h"

#include "Services/Index/Database/IndexDatabase.h"
#include "Services/Index/Search/NoteMatching.h"
#include "Services/Index/Search/NoteScan.h"
#include "Services/Index/Search/SearchQuery.h"
#include "Services/Index/Search/SearchSnippet.h"
#include "Support/Background.h"

#include <QThreadPool>

#include <algorithm>

namespace jotwell {

namespace {

constexpr std::size_t mostResults = 50;

using MakeResult = std::function<IndexSearchResult(const FileMetadata&)>;

IndexSearchResults resultsOf(const NewestNotes& newest, const MakeResult& makeResult)
{
    IndexSearchResults results;
    for (const FileMetadata* note : newest.sorted())
        results.append(makeResult(*note));
    return results;
}

std::vector<QCoro::Task<NewestNotes>> sharesOf(const std::shared_ptr<NoteScan>& scan,
                                               QThreadPool& pool)
{
    const auto searchShare = [scan] { return scan->searchShare(); };
    std::vector<QCoro::Task<NewestNotes>> shares;
    for (int thread = 0; thread < std::max(1, pool.maxThreadCount()); ++thread)
        shares.push_back(inBackground(pool, searchShare));
    return shares;
}

// The scan ends on a thread of the pool: its notes may be the last ones of a vault that is gone,
// and take long to free.
QCoro::Task<IndexSearchResults> newestResults(std::shared_ptr<NoteScan> scan, MakeResult makeResult,
                                              QThreadPool& pool)
{
    auto shares = sharesOf(scan, pool);
    NewestNotes newest(mostResults);
    for (const auto& share : shares) {
        const NewestNotes found = co_await share;
        newest.takeAll(found);
    }
    auto makeResults = [scan = std::move(scan), makeResult = std::move(makeResult), newest] {
        return resultsOf(newest, makeResult);
    };
    co_return co_await inBackground(pool, std::move(makeResults));
}

struct TaggedNotes {
    IndexSearchResults results;
    qsizetype candidates = 0;
};

// `notes` owns the records of the tags.
TaggedNotes searchTagged([[maybe_unused]] const NoteMap& notes,
                         const QList<NoteIndex::Records>& notesOfTags, const QStringList& terms)
{
    const auto matchers = matchersOf(terms);
    const NoteIndex::Records candidates = taggedNotes(notesOfTags);
    NewestNotes newest(mostResults);
    for (const FileMetadata* note : candidates) {
        if (newest.wouldTake(*note) && nameHolds(*note, matchers))
            newest.take(*note);
    }
    const auto makeResult = [](const FileMetadata& note) { return resultOf(note, MatchType::tag); };
    return {resultsOf(newest, makeResult), candidates.size()};
}

QCoro::Task<TaggedNotes> searchTags(const NoteIndex& index, const SearchQuery& query,
                                    QThreadPool& pool)
{
    QList<NoteIndex::Records> notesOfTags;
    for (const QString& hashtag : query.hashtags)
        notesOfTags.append(index.tagToFiles().value(hashtag.toLower()));
    auto search = [notes = index.notes(), notesOfTags = std::move(notesOfTags),
                   terms = query.filenameTerms] { return searchTagged(notes, notesOfTags, terms); };
    return inBackground(pool, std::move(search));
}

QCoro::Task<std::vector<LowercaseMatcher>> matchersInBackground(QStringList terms,
                                                                QThreadPool& pool)
{
    auto makeMatchers = [terms = std::move(terms)] { return matchersOf(terms); };
    return inBackground(pool, std::move(makeMatchers));
}

QCoro::Task<IndexSearchResults> searchNames(NoteMap notes, QStringList terms, QThreadPool& pool)
{
    const auto matchers = co_await matchersInBackground(terms, pool);
    auto matches = [matchers](const FileMetadata& note) { return nameHolds(note, matchers); };
    auto scan = std::make_shared<NoteScan>(std::move(notes), std::move(matches),
                                           NoteScan::Reads::names, mostResults);
    auto makeResult = [](const FileMetadata& note) { return resultOf(note, MatchType::filename); };
    co_return co_await newestResults(std::move(scan), std::move(makeResult), pool);
}

QCoro::Task<IndexSearchResults> searchTexts(NoteMap notes, QStringList terms, QThreadPool& pool)
{
    const auto matchers = co_await matchersInBackground(terms, pool);
    auto matches = [matchers](const FileMetadata& note) { return contentHolds(note, matchers); };
    auto scan = std::make_shared<NoteScan>(std::move(notes), std::move(matches),
                                           NoteScan::Reads::texts, mostResults);
    auto makeResult = [matchers](const FileMetadata& note) {
        IndexSearchResult result = resultOf(note, MatchType::content);
        result.snippet = createSimpleSnippet(note.cleanedContent, matchers);
        return result;
    };
    co_return co_await newestResults(std::move(scan), std::move(makeResult), pool);
}

double secondsSince(Clock::TimePoint startTime, const Clock& clock)
{
    return std::chrono::duration<double>(clock.now() - startTime).count();
}

SearchAnswer answerOf(IndexSearchResults results, qsizetype filesScanned,
                      Clock::TimePoint startTime, const Clock& clock)
{
    SearchMetrics metrics;
    metrics.executionTime = secondsSince(startTime, clock);
    metrics.filesScanned = filesScanned;
    metrics.resultCount = results.size();
    return {std::move(results), metrics};
}

} // namespace

IndexSearch::IndexSearch(const NoteIndex& index, IndexDatabase& database, const Clock& clock,
                         QThreadPool& background)
    : m_index(index), m_database(database), m_clock(clock), m_background(background)
{
}

// Behind a waiting point none of these looks at members, unless it knows that there still are any.

QCoro::Task<SearchAnswer> IndexSearch::searchNotes(QString query)
{
    const Clock& clock = m_clock;
    const auto startTime = clock.now();
    const QString key = searchCacheKey(query);
    if (const auto cached = cachedAnswer(key, startTime))
        co_return *cached;
    const SearchQuery parsed = parseSearchQuery(query);
    const auto cache = m_cache;
    SearchAnswer answer;
    if (!parsed.hashtags.isEmpty()) {
        const TaggedNotes found = co_await searchTags(m_index, parsed, m_background);
        if (found.candidates == 0)
            co_return answerOf({}, 0, startTime, clock);
        answer = answerOf(found.results, found.candidates, startTime, clock);
    } else if (!parsed.filenameTerms.isEmpty()) {
        const qsizetype candidates = m_index.notes().size();
        const IndexSearchResults found =
            co_await searchNames(m_index.notes(), parsed.filenameTerms, m_background);
        answer = answerOf(found, candidates, startTime, clock);
    } else {
        co_return answerOf({}, 0, startTime, clock);
    }
    const CachedSearchResult cached{answer.results, clock.now(), key};
    cache->insert(key, cached);
    answer.metrics.log();
    co_return answer;
}

std::optional<SearchAnswer> IndexSearch::cachedAnswer(const QString& key,
                                                      Clock::TimePoint startTime) const
{
    const auto cached = m_cache->constFind(key);
    if (cached == m_cache->constEnd() || cached->isExpired(m_clock.now()))
        return {};
    SearchAnswer answer = answerOf(cached->results, 0, startTime, m_clock);
    answer.metrics.cacheHit = true;
    return answer;
}

QCoro::Task<SearchAnswer> IndexSearch::searchContent(QString query)
{
    const Clock& clock = m_clock;
    const auto startTime = clock.now();
    if (query.isEmpty() || query.startsWith(u'#'))
        co_return co_await searchNotes(query);
    if (!m_database.hasHandle())
        co_return co_await performInMemoryContentSearch(query, startTime);
    const std::weak_ptr<Life> life = m_life;
    const IndexSearchResults rows = co_await m_database.searchContent(prepareFTSQuery(query));
    if (life.expired())
        co_return answerOf(rows, rows.size(), startTime, clock);
    if (rows.isEmpty())
        co_return co_await performInMemoryContentSearch(query, startTime);
    const SearchAnswer answer = answerOf(rows, rows.size(), startTime, clock);
    answer.metrics.log();
    co_await m_database.logSearchHistory(query, rows.size(), answer.metrics.executionTime);
    co_return answer;
}

QCoro::Task<SearchAnswer> IndexSearch::performInMemoryContentSearch(QString query,
                                                                    Clock::TimePoint startTime)
{
    const Clock& clock = m_clock;
    const qsizetype filesScanned = m_index.notes().size();
    const IndexSearchResults found =
        co_await searchTexts(m_index.notes(), contentTerms(query), m_background);
    co_return answerOf(found, filesScanned, startTime, clock);
}

} // namespace jotwell

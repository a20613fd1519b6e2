#include "Index/IndexJobs.h"
#include "Index/IndexUnderTest.h"
#include "Index/SearchQueries.h"
#include "Index/TimedTask.h"
#include "Reference/CaseFoldingScan.h"
#include "Samples.h"

#include <algorithm>
#include <cstdio>

namespace jotwell::bench {

namespace {

constexpr double slow = 1.5; // times the reference

/// What a search of texts can't avoid to look at, in one piece.
std::string cleanedTexts(const NoteMap& notes)
{
    std::string all;
    notes.forEach([&all](const FileMetadataPtr& record) {
        all.append(record->cleanedContent.constData(),
                   static_cast<std::size_t>(record->cleanedContent.size()));
    });
    return all;
}

/// One query with all that was measured of it.
struct Query {
    QString text;
    Samples ours;
    Samples bare;
};

void addRound(Query& query, TagIndexService& service, const std::string& texts)
{
    const CaseFoldingScan scan(longestTerm(query.text));
    const auto begin = Samples::Clock::now();
    const std::size_t found = scan.countOnAllCores(texts);
    query.bare.add(Samples::Clock::now() - begin);
    const auto answer = timedTask([&] { return service.searchContent(query.text, {}); });
    query.ours.add(answer.time);
    if (!query.text.contains(u' '))
        require(found == 0 || !answer.value.results.isEmpty(), "a search finds what is there");
}

void printSlow(const std::vector<Query>& queries)
{
    double worst = 0;
    for (const Query& query : queries) {
        const double ours = query.ours.percentile(0.5);
        const double bare = query.bare.percentile(0.5);
        worst = std::max(worst, ours / bare);
        if (ours > slow * bare)
            std::fprintf(stderr, "  \"%s\": %.3f ms, reference %.3f ms\n",
                         qUtf8Printable(query.text), ours, bare);
    }
    printFigure("search, worst ratio", worst);
}

void measureOneCore(const std::string& texts, const QStringList& queries, int rounds)
{
    Samples oneCore;
    for (int round = 0; round < rounds; ++round) {
        for (const QString& query : queries) {
            const CaseFoldingScan scan(longestTerm(query));
            const auto begin = Samples::Clock::now();
            static_cast<void>(scan.count(texts));
            oneCore.add(Samples::Clock::now() - begin);
        }
    }
    oneCore.print("search reference on one core");
}

} // namespace

void measureSearches(const VaultUnderTest& vault, IndexUnderTest& index)
{
    const std::string texts = cleanedTexts(index.notes());
    std::vector<Query> queries;
    for (const QString& query : contentQueries())
        queries.push_back({query, {}, {}});
    const int rounds = vault.rounds(5, 25);
    for (int round = 0; round < rounds; ++round) {
        for (Query& query : queries)
            addRound(query, index.service(), texts);
    }
    Samples ours;
    Samples bare;
    for (const Query& query : queries) {
        ours.add(query.ours);
        bare.add(query.bare);
    }
    ours.print("search");
    bare.print("search reference");
    printSlow(queries);
    measureOneCore(texts, contentQueries(), vault.rounds(2, 10));
}

void measureNameSearches(const VaultUnderTest& vault, IndexUnderTest& index)
{
    Samples uncached;
    Samples cached;
    TagIndexService& service = index.service();
    for (int round = vault.rounds(10, 50); round > 0; --round) {
        for (const QString& query : nameQueries()) {
            const auto search = [&] { return service.searchNotes(query, {}); };
            service.search().clearCache();
            uncached.add(timedTask(search).time);
            const auto again = timedTask(search);
            if (again.value.metrics.cacheHit) // what finds nothing isn't kept
                cached.add(again.time);
        }
    }
    uncached.print("name and tag search");
    cached.print("cached search");
}

} // namespace jotwell::bench

#pragma once

#include "Services/Index/IndexSearchResult.h"
#include "Services/Index/SearchCache.h"

#include <QCoroTask>

class QThreadPool;

namespace jotwell {

class Clock;
class IndexDatabase;
class NoteIndex;

/// Answers searches from the maps in memory and from the database. Long work is done on snapshots
/// in the background; a search never fails, it finds less. Main thread. All that it is made of must
/// outlive its searches.
class IndexSearch {
public:
    IndexSearch(const NoteIndex& index, IndexDatabase& database, const Clock& clock,
                QThreadPool& background);

    /// By words of the file name and by tags; the 50 newest.
    QCoro::Task<SearchAnswer> searchNotes(QString query);
    /// By words of the text: by the full-text table, or else in memory.
    QCoro::Task<SearchAnswer> searchContent(QString query);
    QCoro::Task<SearchAnswer> performInMemoryContentSearch(QString query,
                                                           Clock::TimePoint startTime);

    [[nodiscard]] const SearchCache& cache() const { return m_cache; }
    void clearCache() { m_cache.clear(); }

private:
    const NoteIndex& m_index;
    IndexDatabase& m_database;
    const Clock& m_clock;
    QThreadPool& m_background;
    SearchCache m_cache;
};

} // namespace jotwell

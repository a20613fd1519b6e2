#pragma once

#include "Services/Index/Search/IndexSearchResult.h"
#include "Services/Index/Search/SearchCache.h"

#include <QCoroTask>

#include <memory>

class QThreadPool;

namespace jotwell {

class Clock;
class IndexDatabase;
class NoteIndex;

/// Answers searches from the maps in memory and from the database. Long work is done on snapshots
/// in the background; a search never fails, it finds less. Main thread. Clock and pool must outlive
/// its searches. It may go itself while searches are under way, and with it what else it is made
/// of: these then come to an end without it.
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

    [[nodiscard]] const SearchCache& cache() const { return *m_cache; }
    /// What searches under way will find isn't kept either.
    void clearCache() { m_cache = std::make_shared<SearchCache>(); }

private:
    struct Life {};

    [[nodiscard]] std::optional<SearchAnswer> cachedAnswer(const QString& key,
                                                           Clock::TimePoint startTime) const;

    const NoteIndex& m_index;
    IndexDatabase& m_database;
    const Clock& m_clock;
    QThreadPool& m_background;
    /// Searches under way hold the one in which they are to leave what they find.
    std::shared_ptr<SearchCache> m_cache = std::make_shared<SearchCache>();
    std::shared_ptr<Life> m_life = std::make_shared<Life>();
};

} // namespace jotwell

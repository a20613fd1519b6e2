#include "Services/Index/Search/IndexSearchResult.h"

#include "Support/Logging.h"

namespace jotwell {

void SearchMetrics::log() const
{
    const QString milliseconds = QString::number(executionTime * 1000, 'f', 2);
    const QString isHit = cacheHit ? u"true"_qs : u"false"_qs;
    logInfo(u"TagIndex"_qs,
            u"Search completed: %1ms, %2 files scanned, cache hit: %3, %4 results"_qs.arg(
                milliseconds, QString::number(filesScanned), isHit, QString::number(resultCount)));
}

} // namespace jotwell

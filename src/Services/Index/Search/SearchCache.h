#pragma once

#include "Services/Index/Search/IndexSearchResult.h"

#include <QHash>

namespace jotwell {

/// What a name or tag search gave, and when.
struct CachedSearchResult {
    IndexSearchResults results;
    Clock::TimePoint timestamp;
    QString query;

    /// Whether more than 300 seconds have passed since.
    [[nodiscard]] bool isExpired(Clock::TimePoint now) const;
};

/// The lower-case query without blanks around it, under which its results are kept.
[[nodiscard]] QString searchCacheKey(const QString& query);

/// Results by their key. Entries that have expired stay until they are overwritten.
using SearchCache = QHash<QString, CachedSearchResult>;

} // namespace jotwell

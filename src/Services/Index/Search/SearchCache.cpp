#include "Services/Index/Search/SearchCache.h"

#include "Support/CharacterClasses.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr std::chrono::seconds longestUse{300};

}

bool CachedSearchResult::isExpired(Clock::TimePoint now) const
{
    return now - timestamp > longestUse;
}

QString searchCacheKey(const QString& query)
{
    const QString lower = query.toLower();
    const auto isTrimmed = [](QChar unit) { return isWhitespaceOrNewline(unit.unicode()); };
    const auto begin = std::find_if_not(lower.begin(), lower.end(), isTrimmed);
    const auto end = std::find_if_not(lower.rbegin(), lower.rend(), isTrimmed).base();
    return begin < end ? QString(begin, end - begin) : QString();
}

} // namespace jotwell

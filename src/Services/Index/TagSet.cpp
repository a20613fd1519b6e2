#include "Services/Index/TagSet.h"

#include "Support/TextUnits.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace jotwell {

void TagCollector::add(QString tag)
{
    m_tags.append(std::move(tag));
    if (m_tags.size() < m_limit)
        return;
    compact();
    m_limit = std::max(m_limit, 2 * m_tags.size());
}

TagSet TagCollector::take()
{
    compact();
    return std::exchange(m_tags, {});
}

void TagCollector::compact()
{
    std::sort(m_tags.begin(), m_tags.end(), precedesByCodePoint);
    m_tags.erase(std::unique(m_tags.begin(), m_tags.end()), m_tags.end());
}

void insertTag(TagSet& tags, const QString& tag)
{
    const auto place = std::lower_bound(tags.cbegin(), tags.cend(), tag, precedesByCodePoint);
    if (place == tags.cend() || *place != tag)
        tags.insert(place, tag);
}

bool containsTag(const TagSet& tags, const QString& tag)
{
    return std::binary_search(tags.cbegin(), tags.cend(), tag, precedesByCodePoint);
}

TagSet unitedTags(const TagSet& left, const TagSet& right)
{
    if (right.isEmpty())
        return left;
    if (left.isEmpty())
        return right;
    TagSet both;
    both.reserve(left.size() + right.size());
    std::set_union(left.cbegin(), left.cend(), right.cbegin(), right.cend(),
                   std::back_inserter(both), precedesByCodePoint);
    return both;
}

} // namespace jotwell

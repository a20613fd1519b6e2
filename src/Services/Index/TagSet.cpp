#include "Services/Index/TagSet.h"

#include "Support/TextUnits.h"

#include <algorithm>
#include <iterator>

namespace jotwell {

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

TagSet tagSet(QStringList tags)
{
    std::sort(tags.begin(), tags.end(), precedesByCodePoint);
    tags.erase(std::unique(tags.begin(), tags.end()), tags.end());
    return tags;
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

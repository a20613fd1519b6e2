#include "Services/Index/TagCounts.h"

#include "Support/TextUnits.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace jotwell {

void TagCounts::set(const QString& tag, qsizetype count)
{
    if (count == 0) {
        remove(tag);
        return;
    }
    const auto found = m_places.constFind(tag);
    if (found != m_places.cend()) {
        m_counts[*found] = count;
        return;
    }
    m_places.insert(tag, m_tags.size());
    m_heads.push_back(headOf(tag));
    m_counts.push_back(count);
    m_tags.push_back(tag);
}

// The last one takes its place.
void TagCounts::remove(const QString& tag)
{
    const auto found = m_places.constFind(tag);
    if (found == m_places.cend())
        return;
    const std::size_t place = *found;
    m_places[m_tags.back()] = place;
    m_places.remove(tag);
    m_heads[place] = m_heads.back();
    m_counts[place] = m_counts.back();
    m_tags[place] = m_tags.back();
    m_heads.pop_back();
    m_counts.pop_back();
    m_tags.pop_back();
}

QList<TagCount> TagCounts::all(qsizetype limit) const
{
    return firstOf(candidates(QString()), limit);
}

QList<TagCount> TagCounts::beginningWith(const QString& prefix, qsizetype limit) const
{
    std::vector<Candidate> found = candidates(prefix);
    if (const auto exact = m_places.constFind(prefix); exact != m_places.cend()) {
        const auto itself = std::lower_bound(
            found.begin(), found.end(), *exact,
            [](const Candidate& each, std::size_t place) { return each.place < place; });
        if (prefix.isEmpty())
            found.erase(itself);
        else
            itself->rank = std::numeric_limits<qsizetype>::max();
    }
    return firstOf(std::move(found), limit);
}

QList<TagCount> TagCounts::firstOf(std::vector<Candidate> found, qsizetype limit) const
{
    const auto count = std::clamp<qsizetype>(limit, 0, static_cast<qsizetype>(found.size()));
    const auto end = found.begin() + count;
    std::partial_sort(
        found.begin(), end, found.end(),
        [this](const Candidate& left, const Candidate& right) { return precedes(left, right); });
    QList<TagCount> tags;
    tags.reserve(count);
    for (auto each = found.begin(); each != end; ++each)
        tags.append({m_tags[each->place], m_counts[each->place]});
    return tags;
}

// In the order of their places.
std::vector<TagCounts::Candidate> TagCounts::candidates(const QString& prefix) const
{
    const qsizetype known = std::min(prefix.size(), headLength);
    const Head mask = known == 0 ? 0 : ~Head(0) << (unitBits * (headLength - known));
    const Head wanted = headOf(prefix);
    // A shorter tag's head is filled up with zeros.
    const bool isHeadEnough = prefix.size() == known && !prefix.contains(QChar());
    std::vector<Candidate> found;
    for (std::size_t place = 0; place < m_heads.size(); ++place) {
        if ((m_heads[place] & mask) != wanted)
            continue;
        if (isHeadEnough || m_tags[place].startsWith(prefix))
            found.push_back({m_counts[place], m_heads[place], place});
    }
    return found;
}

TagCounts::Head TagCounts::headOf(QStringView tag)
{
    Head head = 0;
    for (qsizetype place = 0; place < headLength; ++place)
        head = head << unitBits | (place < tag.size() ? tag[place].unicode() : 0U);
    return head;
}

bool TagCounts::precedes(const Candidate& left, const Candidate& right) const
{
    if (left.rank != right.rank)
        return left.rank > right.rank;
    constexpr Head firstSurrogate = 0xD800; // above which units and code points differ in order
    const int same = std::countl_zero(left.head ^ right.head) / unitBits * unitBits;
    if (same < headLength * unitBits) {
        const auto unitOf = [same](Head head) { return head << same >> (3 * unitBits); };
        if (std::min(unitOf(left.head), unitOf(right.head)) < firstSurrogate)
            return left.head < right.head;
    }
    return precedesByCodePoint(m_tags[left.place], m_tags[right.place]);
}

} // namespace jotwell

#include "Views/Editor/PrefixIndex.h"

#include <algorithm>

namespace jotwell {

namespace {

qsizetype commonLength(QStringView left, QStringView right)
{
    const auto ends = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return ends.first - left.begin();
}

} // namespace

PrefixIndex::PrefixIndex(const std::vector<QStringView>& words)
{
    for (std::size_t place = 0; place < words.size(); ++place)
        m_entries.push_back({words[place], place});
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [](const Entry& left, const Entry& right) { return left.word < right.word; });
    const Entry* previous = nullptr;
    for (Entry& entry : m_entries) {
        const Entry* shorter = previous;
        while (shorter && !entry.word.startsWith(shorter->word))
            shorter = shorter->shorter;
        entry.shorter = shorter;
        if (shorter)
            entry.first = std::min(entry.first, shorter->first);
        previous = &entry;
    }
}

// Every word with which the text begins also begins the last word that doesn't sort behind it.
std::optional<std::size_t> PrefixIndex::firstAtStart(QStringView text) const
{
    const auto behind =
        std::upper_bound(m_entries.begin(), m_entries.end(), text,
                         [](QStringView left, const Entry& right) { return left < right.word; });
    if (behind == m_entries.begin())
        return std::nullopt;
    const Entry* entry = &*(behind - 1);
    const qsizetype common = commonLength(entry->word, text);
    while (entry && entry->word.size() > common)
        entry = entry->shorter;
    return entry ? std::optional(entry->first) : std::nullopt;
}

} // namespace jotwell

#pragma once

#include <QStringList>

namespace jotwell {

/// Tags in ascending order by code point, each once. Most notes have none, and few have many.
using TagSet = QStringList;

/// Makes a set of tags that come in any order and any number of times. Never holds many more than
/// there are different ones.
class TagCollector {
public:
    void add(QString tag);
    /// What was added so far. Leaves nothing behind.
    [[nodiscard]] TagSet take();

private:
    void compact();

    QStringList m_tags;
    qsizetype m_limit = 1'000; // for compacting; at least twice what is left then
};

/// Puts one tag into a set, unless it is there. Costs the length of the set.
void insertTag(TagSet& tags, const QString& tag);
[[nodiscard]] bool containsTag(const TagSet& tags, const QString& tag);
[[nodiscard]] TagSet unitedTags(const TagSet& left, const TagSet& right);

} // namespace jotwell

#pragma once

#include <QStringList>

namespace jotwell {

/// Tags in ascending order by code point, each once. Most notes have none, and few have many.
using TagSet = QStringList;

/// The set of tags that come in any order and any number of times.
[[nodiscard]] TagSet tagSet(QStringList tags);

/// Puts one tag into a set, unless it is there. Costs the length of the set.
void insertTag(TagSet& tags, const QString& tag);
[[nodiscard]] bool containsTag(const TagSet& tags, const QString& tag);
[[nodiscard]] TagSet unitedTags(const TagSet& left, const TagSet& right);

} // namespace jotwell

#pragma once

#include <QStringList>

namespace jotwell {

/// Tags in ascending order by code point, each once. Most notes have none, and few have many.
using TagSet = QStringList;

void insertTag(TagSet& tags, const QString& tag);
[[nodiscard]] bool containsTag(const TagSet& tags, const QString& tag);
[[nodiscard]] TagSet unitedTags(const TagSet& left, const TagSet& right);

} // namespace jotwell

#pragma once

#include "Services/ContentProcessor.h"
#include "Services/Index/FileMetadata.h"
#include "Services/Index/IndexStatus.h"
#include "Services/Index/NoteIndex.h"
#include "Services/Index/Search/IndexSearchResult.h"
#include "Services/Index/Search/SearchCache.h"
#include "Services/Index/Search/SearchQuery.h"

#include <QJsonValue>

namespace jotwell {

class TagIndexService;

// The records of the index as JSON. Texts in UTF-8 become texts.

[[nodiscard]] QString textOf(QByteArrayView utf8);

[[nodiscard]] QJsonValue toJson(const QList<CodeBlock>& blocks);
[[nodiscard]] QJsonValue toJson(const ProcessedContent& content);
[[nodiscard]] QJsonValue toJson(const ContentProcessor::WithoutCode& text);
[[nodiscard]] QJsonValue toJson(const QSet<QByteArray>& texts);
/// Null for none.
[[nodiscard]] QJsonValue toJson(const FileMetadata* record);
[[nodiscard]] QJsonValue toJson(const FileMetadataPtr& record);
[[nodiscard]] QJsonValue toJson(const IndexStatus& status);
[[nodiscard]] QJsonValue toJson(const SearchQuery& query);
[[nodiscard]] QJsonValue toJson(const SearchAnswer& answer);
[[nodiscard]] QJsonValue toJson(const SearchCache& cache, Clock::TimePoint now);
[[nodiscard]] QJsonValue toJson(const TagCount& tag);

/// All maps of the index.
[[nodiscard]] QJsonValue toJson(const NoteIndex& index);

} // namespace jotwell

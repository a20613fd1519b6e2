#pragma once

#include "Services/Index/FileMetadata.h"

#include <QString>

namespace jotwell {

/// A record of a note of this path with these tags in its text.
inline FileMetadataPtr recordOf(const QByteArray& path, TagSet tags = {},
                                Clock::TimePoint modified = {}, const QByteArray& text = {})
{
    FileMetadata record;
    record.path = path;
    record.modificationDate = modified;
    record.contentTags = std::move(tags);
    record.fullContent = text;
    record.cleanedContent = text;
    return std::make_shared<const FileMetadata>(std::move(record));
}

} // namespace jotwell

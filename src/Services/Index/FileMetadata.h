#pragma once

#include "Platform/Clock.h"
#include "Services/Index/ContentHash.h"
#include "Services/Index/TagSet.h"

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

namespace jotwell {

/// One note as the index knows it, taken from its file in one reading. Texts are kept as UTF-8,
/// which takes half the room. Never changed once made, so that any thread may read it.
struct FileMetadata {
    QByteArray path; ///< absolute, UTF-8; what the record goes by everywhere
    Clock::TimePoint modificationDate;
    qint64 fileSize = 0; ///< bytes
    ContentHash contentHash = 0;
    TagSet frontmatterTags;
    TagSet contentTags;
    Clock::TimePoint indexedDate;
    QByteArray fullContent;
    QByteArray cleanedContent;
    qint64 wordCount = 0;

    /// The file's name with its extension. A part of `path`.
    [[nodiscard]] QByteArrayView fileName() const;
    /// The file's name without its last extension. A part of `path`.
    [[nodiscard]] QByteArrayView title() const;
    /// Tags of both kinds.
    [[nodiscard]] TagSet allTags() const;
};

using FileMetadataPtr = std::shared_ptr<const FileMetadata>;

/// The last component of a path, and that without its last extension.
[[nodiscard]] QByteArrayView fileNameOf(QByteArrayView path);
[[nodiscard]] QByteArrayView titleOf(QByteArrayView path);

} // namespace jotwell

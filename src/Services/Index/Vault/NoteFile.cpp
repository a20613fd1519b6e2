#include "Services/Index/Vault/NoteFile.h"

#include "Services/ContentProcessor.h"
#include "Services/Index/Content/NoteTags.h"
#include "Services/Index/Vault/FileReadings.h"
#include "Support/FileText.h"
#include "Support/Logging.h"

#include <cerrno>
#include <new>

namespace jotwell {

namespace {

using Metadata = Result<FileMetadataPtr, SystemError>;

FileMetadataPtr recordOf(const QByteArray& path, const FileStatus& status, QByteArray text,
                         ContentHash hash, const Clock& clock)
{
    CleanedContent cleaned = ContentProcessor::cleanedContent(text);
    auto record = std::make_shared<FileMetadata>();
    record->path = path;
    record->modificationDate = status.modificationDate();
    record->fileSize = status.size;
    record->contentHash = hash;
    record->frontmatterTags = extractFrontmatterTags(text);
    record->contentTags = unitedTags(extractContentTags(text), cleaned.hashtags);
    record->fullContent = std::move(text);
    record->cleanedContent = std::move(cleaned.text);
    record->wordCount = cleaned.wordCount;
    record->indexedDate = clock.now();
    return record;
}

Metadata metadataOf(const QByteArray& path, const Clock& clock, FileReadings& readings)
{
    // In this order: a write that comes in between shows in the next status.
    const auto status = fileStatus(path);
    if (!status)
        return status.error();
    const auto readAt = readings.now();
    auto text = readNote(path, *status);
    if (!text)
        return text.error();
    const ContentHash hash = calculateHash(*text);
    readings.remember(path, *status, hash, readAt);
    return recordOf(path, *status, std::move(text.value()), hash, clock);
}

// Room for a note's texts may be lacking at any step.
Metadata metadataIfItFits(const QByteArray& path, const Clock& clock, FileReadings& readings)
{
    try {
        return metadataOf(path, clock, readings);
    } catch (const std::bad_alloc&) {
        return SystemError{ENOMEM};
    }
}

// The system's own words for these two don't say what is the matter with the note.
QString reasonOf(const SystemError& error)
{
    switch (error.code) {
    case EILSEQ:
        return QStringLiteral("The file isn't valid UTF-8 text");
    case EINVAL:
        return QStringLiteral("Not a regular file");
    default:
        return error.description();
    }
}

} // namespace

Result<QByteArray, SystemError> readNote(const QByteArray& path)
{
    const auto status = fileStatus(path);
    return status ? readNote(path, *status) : status.error();
}

Result<QByteArray, SystemError> readNote(const QByteArray& path, const FileStatus& status)
{
    switch (status.kind) {
    case FileStatus::Kind::folder:
        return SystemError{EISDIR};
    case FileStatus::Kind::other:
        return SystemError{EINVAL};
    case FileStatus::Kind::link: {
        const auto target = fileStatus(path, Links::follow);
        return target ? readNote(path, *target) : target.error();
    }
    case FileStatus::Kind::regular:
        break;
    }
    auto bytes = readFile(path);
    if (bytes && !bytes->isValidUtf8())
        return SystemError{EILSEQ};
    return bytes;
}

FileMetadataPtr extractMetadata(const QByteArray& path, const Clock& clock, FileReadings& readings)
{
    const Metadata record = metadataIfItFits(path, clock, readings);
    if (record)
        return *record;
    logError(QStringLiteral("TagIndex"),
             QStringLiteral("Failed to extract metadata from %1: %2")
                 .arg(QString::fromUtf8(path), reasonOf(record.error())));
    return nullptr;
}

} // namespace jotwell

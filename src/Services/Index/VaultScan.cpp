#include "Services/Index/VaultScan.h"

#include "Services/Index/NoteFile.h"
#include "Support/FolderWalk.h"

#include <QSet>

namespace jotwell {

namespace {

using Status = Result<FileStatus, SystemError>;

/// Whether a file that seems to be unchanged is read all the same.
enum class Read { whatMayHaveChanged, always };

// A scan comes every five seconds, so that an hour goes through all shares.
constexpr quint64 sliceCount = 720;

bool isInSlice(const QByteArray& path, quint64 slice)
{
    return calculateHash(path) % sliceCount == slice % sliceCount;
}

// None if the note can't be read.
std::optional<ContentHash> hashOf(const QByteArray& path, const Status& status,
                                  FileReadings& readings, Read read)
{
    if (status && read == Read::whatMayHaveChanged) {
        if (const auto known = readings.known(path, *status))
            return known;
    }
    const auto readAt = readings.now();
    const auto text = status ? readNote(path, *status) : readNote(path);
    if (!text)
        return std::nullopt;
    const ContentHash hash = calculateHash(*text);
    if (status)
        readings.remember(path, *status, hash, readAt);
    return hash;
}

std::optional<NoteChange::Kind> compare(const QByteArray& path, const FileMetadata& record,
                                        const Status& status, bool checkContent,
                                        FileReadings& readings, Read read)
{
    if (status && status->modificationDate() > record.modificationDate)
        return NoteChange::Kind::dateChanged;
    if (status && status->size != record.fileSize)
        return NoteChange::Kind::sizeChanged;
    if (!checkContent)
        return std::nullopt;
    const auto hash = hashOf(path, status, readings, read);
    return hash && *hash != record.contentHash ? std::optional(NoteChange::Kind::contentChanged)
                                               : std::nullopt;
}

class Comparison {
public:
    Comparison(const NoteMap& notes, bool checkContent, FileReadings& readings, quint64 slice)
        : m_notes(notes), m_checkContent(checkContent), m_readings(readings), m_slice(slice)
    {
    }

    void add(const FolderEntry& entry)
    {
        const FileMetadata* record = m_notes.find(entry.path());
        if (record == nullptr) {
            addChange(entry.path(), NoteChange::Kind::isNew);
            return;
        }
        m_listed.push_back(record);
        const auto read =
            isInSlice(record->path, m_slice) ? Read::always : Read::whatMayHaveChanged;
        if (const auto kind =
                compare(record->path, *record, entry.status(), m_checkContent, m_readings, read))
            addChange(record->path, *kind);
    }

    [[nodiscard]] ScanFindings takeFindings()
    {
        findMissing();
        return std::move(m_findings);
    }

private:
    void addChange(const QByteArray& path, NoteChange::Kind kind)
    {
        m_findings.changes.push_back({QByteArray(path.constData(), path.size()), kind});
    }

    void findMissing()
    {
        if (static_cast<qsizetype>(m_listed.size()) == m_notes.size())
            return;
        const QSet<const FileMetadata*> listed(m_listed.begin(), m_listed.end());
        m_notes.forEach([&](const FileMetadataPtr& record) {
            if (!listed.contains(record.get()))
                m_findings.missing.push_back(record->path);
        });
    }

    const NoteMap& m_notes;
    bool m_checkContent;
    FileReadings& m_readings;
    quint64 m_slice;
    std::vector<const FileMetadata*> m_listed; ///< the records of the files that were listed
    ScanFindings m_findings;
};

} // namespace

std::optional<NoteChange::Kind> changeOf(const QByteArray& path, const Status& status,
                                         const FileMetadata* record, bool checkContent,
                                         FileReadings& readings)
{
    if (record == nullptr)
        return NoteChange::Kind::isNew;
    return compare(path, *record, status, checkContent, readings, Read::whatMayHaveChanged);
}

std::optional<ScanFindings> compareVault(const QString& vaultPath, bool checkContent,
                                         const NoteMap& notes, FileReadings& readings,
                                         quint64 slice)
{
    Comparison comparison(notes, checkContent, readings, slice);
    const auto visit = [&comparison](const FolderEntry& entry) {
        if (entry.isNote())
            comparison.add(entry);
    };
    if (!walkFolder(vaultPath, visit))
        return std::nullopt;
    return comparison.takeFindings();
}

} // namespace jotwell

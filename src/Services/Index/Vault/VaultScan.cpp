#include "Services/Index/Vault/VaultScan.h"

#include "Services/Index/Vault/NoteFile.h"
#include "Services/Index/Vault/VaultListing.h"
#include "Support/FolderWalk.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>

namespace jotwell {

namespace {

using Status = Result<FileStatus, SystemError>;
using Listed = std::vector<const FileMetadata*>;

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

/// One thread's part in the comparison of a vault.
class Comparison {
public:
    Comparison(const NoteMap& notes, bool checkContent, FileReadings& readings, quint64 slice)
        : m_notes(notes), m_checkContent(checkContent), m_readings(readings), m_slice(slice)
    {
    }

    void add(const FolderEntry& entry)
    {
        const Status status = entry.status();
        const QByteArray& path = entry.path();
        const FileMetadata* record = m_notes.find(path);
        if (record == nullptr) {
            addChange(path, NoteChange::Kind::isNew);
            return;
        }
        m_listed.push_back(record);
        const auto read = isInSlice(path, m_slice) ? Read::always : Read::whatMayHaveChanged;
        if (const auto kind = compare(path, *record, status, m_checkContent, m_readings, read))
            addChange(path, *kind);
    }

    [[nodiscard]] const std::vector<NoteChange>& changes() const { return m_changes; }
    /// The records of the files that were listed.
    [[nodiscard]] const Listed& listed() const { return m_listed; }

private:
    void addChange(const QByteArray& path, NoteChange::Kind kind)
    {
        m_changes.push_back({QByteArray(path.constData(), path.size()), kind});
    }

    NoteMap m_notes;
    bool m_checkContent;
    FileReadings& m_readings;
    quint64 m_slice;
    std::vector<NoteChange> m_changes;
    Listed m_listed;
};

template <typename T>
void append(std::vector<T>& all, const std::vector<T>& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

std::vector<QByteArray> missingFrom(const Listed& listed, const NoteMap& notes)
{
    std::vector<QByteArray> missing;
    if (static_cast<qsizetype>(listed.size()) == notes.size())
        return missing;
    const QSet<const FileMetadata*> found(listed.begin(), listed.end());
    notes.forEach([&](const FileMetadataPtr& record) {
        if (!found.contains(record.get()))
            missing.push_back(record->path);
    });
    return missing;
}

// What two threads have found, in the order in which one would have. Most scans find no more than a
// note, so that this seldom costs anything.
void sortByListing(std::vector<NoteChange>& changes, const QString& vaultPath)
{
    const auto listed = findMarkdownFiles(vaultPath);
    if (!listed)
        return;
    QHash<QByteArray, std::size_t> places;
    for (const NoteChange& each : changes)
        places.insert(each.path, listed->size());
    for (std::size_t place = 0; place < listed->size(); ++place) {
        if (const auto found = places.find((*listed)[place]); found != places.end())
            *found = place;
    }
    std::stable_sort(changes.begin(), changes.end(),
                     [&places](const NoteChange& left, const NoteChange& right) {
                         return places.value(left.path) < places.value(right.path);
                     });
}

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
    // To look a note up takes about as long as to list it.
    const Comparison part(notes, checkContent, readings, slice);
    std::array parts{part, part};
    std::vector<FolderVisit> visits;
    visits.reserve(parts.size());
    for (Comparison& each : parts) {
        visits.emplace_back([&each](const FolderEntry& entry) {
            if (entry.isNote())
                each.add(entry);
        });
    }
    if (!walkFolder(vaultPath, visits))
        return std::nullopt;
    const auto hasChanges = [](const Comparison& each) { return !each.changes().empty(); };
    ScanFindings findings;
    Listed listed;
    for (const Comparison& each : parts) {
        append(findings.changes, each.changes());
        append(listed, each.listed());
    }
    if (std::count_if(parts.begin(), parts.end(), hasChanges) > 1)
        sortByListing(findings.changes, vaultPath);
    findings.missing = missingFrom(listed, notes);
    return findings;
}

} // namespace jotwell

#pragma once

#include "Services/Index/NoteMap.h"
#include "Services/Index/Vault/FileReadings.h"

#include <QString>

#include <optional>
#include <vector>

namespace jotwell {

/// A note whose file isn't what its record says.
struct NoteChange {
    enum class Kind { isNew, dateChanged, sizeChanged, contentChanged };

    QByteArray path;
    Kind kind = Kind::isNew;

    bool operator==(const NoteChange&) const = default;
};

struct ScanFindings {
    std::vector<NoteChange> changes; ///< in the order of `findMarkdownFiles`
    std::vector<QByteArray> missing; ///< notes of the map that weren't listed
};

/// How a listed file differs from its record (none if it is new), if it does. Blocking; any thread.
[[nodiscard]] std::optional<NoteChange::Kind>
changeOf(const QByteArray& path, const Result<FileStatus, SystemError>& status,
         const FileMetadata* record, bool checkContent, FileReadings& readings);

/// Compares the files of a vault with the records of its notes, on this thread and on one more.
/// `slice` numbers the scans: each reads another share of the notes again, whatever their status
/// says. Nothing if the vault can't be listed. Blocking, for a thread of the background.
[[nodiscard]] std::optional<ScanFindings> compareVault(const QString& vaultPath, bool checkContent,
                                                       const NoteMap& notes, FileReadings& readings,
                                                       quint64 slice);

} // namespace jotwell

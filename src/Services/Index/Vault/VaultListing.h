#pragma once

#include "Services/Index/Vault/NoteFile.h"
#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace jotwell {

// The notes of a vault: all entries below its folder whose extension is exactly "md", whatever they
// are, but for hidden ones and those in hidden folders. Links to folders aren't followed; folders
// that can't be read and names that are no UTF-8 are passed over. Fails only if the vault's own
// folder can't be listed. In the file system's order. Blocking; any thread.

[[nodiscard]] Result<std::vector<QByteArray>, SystemError>
findMarkdownFiles(const QString& vaultPath);

/// What is said when it fails.
[[nodiscard]] QString listingFailure();

struct ListedNote {
    QByteArray path;
    Result<FileStatus, SystemError> status;
};

/// The same notes in the same order, with what the file system says of each.
[[nodiscard]] Result<std::vector<ListedNote>, SystemError>
findMarkdownFilesWithStatus(const QString& vaultPath);

} // namespace jotwell

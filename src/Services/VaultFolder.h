#pragma once

#include "Models/NoteSearchResult.h"
#include "Services/ObsidianError.h"
#include "Support/Result.h"

#include <QString>

namespace jotwell {

// What is read straight from the vault's folder tree, without the index. Blocking; any thread.

/// Fails with `folderNotFound` or `invalidPath` unless a folder is there.
[[nodiscard]] Result<void, ObsidianError> validateFolder(const QString& path);

/// The `count` notes below `folder` that changed last, newest first. Hidden files and folders don't
/// count, and what can't be read is passed over.
[[nodiscard]] NoteSearchResults recentNotesBelow(const QString& folder, qsizetype count);

} // namespace jotwell

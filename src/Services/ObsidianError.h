#pragma once

#include "Support/SystemError.h"

#include <QString>

#include <variant>

namespace jotwell {

/// What keeps the note service from its vault.
struct ObsidianError {
    enum class Kind { folderNotFound, invalidPath, noFolderPath };

    Kind kind = Kind::noFolderPath;
    QString path; ///< empty for `noFolderPath`

    [[nodiscard]] QString errorDescription() const;
    bool operator==(const ObsidianError&) const = default;
};

/// How an operation of the note service can fail: for want of a vault, or by the file system.
using NoteError = std::variant<ObsidianError, SystemError>;

[[nodiscard]] QString description(const NoteError& error);

} // namespace jotwell

#include "Services/ObsidianError.h"

namespace jotwell {

QString ObsidianError::errorDescription() const
{
    switch (kind) {
    case Kind::folderNotFound:
        return QStringLiteral("The Obsidian folder does not exist: ") + path;
    case Kind::invalidPath:
        return QStringLiteral("The path is not a directory: ") + path;
    case Kind::noFolderPath:
        return QStringLiteral("Please set the Obsidian folder path in Settings.");
    }
    Q_UNREACHABLE();
}

QString description(const NoteError& error)
{
    if (const auto* ours = std::get_if<ObsidianError>(&error))
        return ours->errorDescription();
    return std::get<SystemError>(error).description();
}

} // namespace jotwell

#include "driver/Answer.h"

namespace jotwell {

namespace {

QString nameOf(ObsidianError::Kind kind)
{
    switch (kind) {
    case ObsidianError::Kind::folderNotFound:
        return QStringLiteral("ObsidianError.folderNotFound");
    case ObsidianError::Kind::invalidPath:
        return QStringLiteral("ObsidianError.invalidPath");
    case ObsidianError::Kind::noFolderPath:
        return QStringLiteral("ObsidianError.noFolderPath");
    }
    Q_UNREACHABLE();
}

QString nameOf(TemplateSyncError::Kind kind)
{
    switch (kind) {
    case TemplateSyncError::Kind::writeError:
        return QStringLiteral("TemplateSyncError.writeError");
    case TemplateSyncError::Kind::notSyncedTemplate:
        return QStringLiteral("TemplateSyncError.notSyncedTemplate");
    case TemplateSyncError::Kind::fileNotFound:
        return QStringLiteral("TemplateSyncError.fileNotFound");
    }
    Q_UNREACHABLE();
}

} // namespace

Failure badRequest(const QString& message)
{
    return {QStringLiteral("badRequest"), message};
}

Failure failureOf(const ObsidianError& error)
{
    return {nameOf(error.kind), error.errorDescription()};
}

Failure failureOf(const SystemError& error)
{
    return {QStringLiteral("system"), error.description()};
}

Failure failureOf(const DecodingError& error)
{
    return {QStringLiteral("DecodingError"), error.description};
}

Failure failureOf(const TemplateSyncError& error)
{
    return {nameOf(error.kind), error.errorDescription()};
}

} // namespace jotwell

#pragma once

#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>
#include <QString>

namespace jotwell {

class FileCalls;

/// Writes files so that each is whole or absent, and on the disk when the call comes back, whatever
/// happens in between. Stateless; any thread, also several at once on one file: the later wins.
class AtomicFile {
public:
    enum class Permissions {
        usual,    ///< those of the file that is replaced, or of any new file of the user's
        ownerOnly ///< readable and writable by the user alone
    };

    explicit AtomicFile(FileCalls& calls) : m_calls(calls) {}

    /// Puts a file with exactly `bytes` at `path`, in place of one that is there; a symbolic link
    /// stays and its target is written. On a failure nothing has changed.
    [[nodiscard]] Result<void, SystemError>
    write(const QString& path, const QByteArray& bytes,
          Permissions permissions = Permissions::usual) const;

private:
    FileCalls& m_calls;
};

} // namespace jotwell

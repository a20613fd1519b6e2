#pragma once

#include <QStringList>

namespace jotwell {

/// The syncs that this program asks the operating system for, while one of these lives. They are
/// done but for those that are to fail. Any thread may sync.
class SyncCalls {
public:
    SyncCalls();
    ~SyncCalls();
    SyncCalls(const SyncCalls&) = delete;
    SyncCalls& operator=(const SyncCalls&) = delete;

    /// The names of the files and folders synced since the last call, without their folders.
    [[nodiscard]] QStringList taken();
    /// From now on the sync of a file or folder of that name fails.
    void fail(const QString& name);
};

} // namespace jotwell

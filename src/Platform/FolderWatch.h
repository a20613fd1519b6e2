#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace jotwell {

/// A live watch on one folder; it ends when this object is destroyed.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;
};

/// Makes watches on folders. Main thread only.
class FolderWatcher {
public:
    virtual ~FolderWatcher() = default;

    /// Whether the folder can be opened at all. To watch it may still fail, for want of the
    /// system's resources.
    [[nodiscard]] virtual bool canOpen(const QString& folder) = 0;

    /// Calls `changed` on the main thread each time an entry of `folder` is added, removed, renamed
    /// or replaced, and when the folder itself is removed or renamed; not for what happens inside a
    /// file or a sub-folder. Gives nothing if the folder can't be watched.
    [[nodiscard]] virtual std::unique_ptr<FolderWatch> watch(const QString& folder,
                                                             std::function<void()> changed) = 0;
};

} // namespace jotwell

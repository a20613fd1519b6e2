#pragma once

#include <optional>

namespace jotwell {

/// What the operating system knows of the file systems that are mounted. Blocking; any thread.
class FileSystems {
public:
    virtual ~FileSystems() = default;

    /// Whether the change times of the files there tell of every write: so on local disks, but not
    /// across a network, in user space, or where a file has no such time. Nothing if it can't be
    /// found out, as when no file is there. `path` is in the file system's encoding.
    [[nodiscard]] virtual std::optional<bool> keepsChangeTimes(const char* path) = 0;
};

} // namespace jotwell

#pragma once

#include <cstddef>

#include <sys/types.h>

namespace jotwell {

/// The system calls that change files, each with the answer and the `errno` of the call of its
/// name. Blocking; any thread. Paths are in the file system's encoding.
class FileCalls {
public:
    virtual ~FileCalls() = default;

    virtual int open(const char* path, int flags, mode_t mode) = 0;
    virtual ssize_t write(int descriptor, const void* bytes, std::size_t count) = 0;
    virtual int fchmod(int descriptor, mode_t mode) = 0;
    virtual int fsync(int descriptor) = 0;
    virtual int close(int descriptor) = 0;
    virtual int rename(const char* from, const char* to) = 0;
    virtual int unlink(const char* path) = 0;

    /// Opens a file without a name in `folder`; EOPNOTSUPP where the file system has none.
    virtual int openNameless(const char* folder, mode_t mode) = 0;
    /// Gives a file without a name its name; EEXIST if that is taken.
    virtual int linkNameless(int descriptor, const char* path) = 0;
    /// Swaps two names in one step; EINVAL where the file system can't.
    virtual int exchange(const char* first, const char* second) = 0;
};

} // namespace jotwell

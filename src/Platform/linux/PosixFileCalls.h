#pragma once

#include "Platform/FileCalls.h"

namespace jotwell {

/// The real system calls.
class PosixFileCalls : public FileCalls {
public:
    int open(const char* path, int flags, mode_t mode) override;
    ssize_t write(int descriptor, const void* bytes, std::size_t count) override;
    int fchmod(int descriptor, mode_t mode) override;
    int fsync(int descriptor) override;
    int close(int descriptor) override;
    int rename(const char* from, const char* to) override;
    int unlink(const char* path) override;
    int openNameless(const char* folder, mode_t mode) override;
    int linkNameless(int descriptor, const char* path) override;
    int exchange(const char* first, const char* second) override;
};

} // namespace jotwell

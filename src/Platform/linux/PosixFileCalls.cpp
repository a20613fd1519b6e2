#include "Platform/linux/PosixFileCalls.h"

#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

int PosixFileCalls::open(const char* path, int flags, mode_t mode)
{
    return ::open(path, flags, mode);
}

ssize_t PosixFileCalls::write(int descriptor, const void* bytes, std::size_t count)
{
    return ::write(descriptor, bytes, count);
}

int PosixFileCalls::fchmod(int descriptor, mode_t mode)
{
    return ::fchmod(descriptor, mode);
}

int PosixFileCalls::fsync(int descriptor)
{
    return ::fsync(descriptor);
}

int PosixFileCalls::close(int descriptor)
{
    return ::close(descriptor);
}

int PosixFileCalls::rename(const char* from, const char* to)
{
    return std::rename(from, to);
}

int PosixFileCalls::unlink(const char* path)
{
    return ::unlink(path);
}

int PosixFileCalls::openNameless(const char* folder, mode_t mode)
{
    return ::open(folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
}

int PosixFileCalls::linkNameless(int descriptor, const char* path)
{
    // By way of /proc, as linking an empty path takes a capability that users don't have.
    const std::string name = "/proc/self/fd/" + std::to_string(descriptor);
    return ::linkat(AT_FDCWD, name.c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW);
}

int PosixFileCalls::exchange(const char* first, const char* second)
{
    return ::renameat2(AT_FDCWD, first, AT_FDCWD, second, RENAME_EXCHANGE);
}

} // namespace jotwell

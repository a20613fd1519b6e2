#include "Support/FileStatus.h"

#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>

namespace jotwell {

namespace {

FileStatus::Kind kindOf(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return FileStatus::Kind::regular;
    case S_IFDIR:
        return FileStatus::Kind::folder;
    case S_IFLNK:
        return FileStatus::Kind::link;
    default:
        return FileStatus::Kind::other;
    }
}

qint64 nanoseconds(const timespec& time)
{
    constexpr qint64 perSecond = 1'000'000'000;
    using Range = std::numeric_limits<qint64>;
    if (time.tv_sec >= Range::max() / perSecond)
        return Range::max();
    if (time.tv_sec <= Range::min() / perSecond)
        return Range::min();
    return time.tv_sec * perSecond + time.tv_nsec;
}

Result<FileStatus, SystemError> statusOf(int folder, const char* name, int flags)
{
    struct stat status = {};
    if (::fstatat(folder, name, &status, flags) != 0)
        return SystemError::last();
    return FileStatus{kindOf(status.st_mode),      status.st_size, nanoseconds(status.st_mtim),
                      nanoseconds(status.st_ctim), status.st_ino,  status.st_dev};
}

} // namespace

std::chrono::system_clock::time_point FileStatus::modificationDate() const
{
    using Date = std::chrono::system_clock::time_point;
    return Date(
        std::chrono::duration_cast<Date::duration>(std::chrono::nanoseconds(modificationTime)));
}

Result<FileStatus, SystemError> fileStatus(const QByteArray& path, Links links)
{
    if (path.contains('\0'))
        return SystemError{EINVAL};
    return statusOf(AT_FDCWD, path.constData(), links == Links::follow ? 0 : AT_SYMLINK_NOFOLLOW);
}

Result<FileStatus, SystemError> fileStatusIn(int folder, const char* name)
{
    return statusOf(folder, name, AT_SYMLINK_NOFOLLOW);
}

} // namespace jotwell

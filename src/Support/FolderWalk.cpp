#include "Support/FolderWalk.h"

#include <QFile>
#include <QStringDecoder>

#include <memory>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace jotwell {

namespace {

std::optional<QString> nameFrom(const char* encoded)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString name = decoder.decode(QByteArrayView(encoded));
    return decoder.hasError() ? std::nullopt : std::optional(std::move(name));
}

bool isFolder(DIR* parent, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status = {};
    return ::fstatat(::dirfd(parent), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(status.st_mode);
}

} // namespace

void walkFolder(const QString& folder, const std::function<void(const FolderEntry&)>& visit)
{
    std::vector<QString> pending{folder};
    while (!pending.empty()) {
        const QString path = std::move(pending.back());
        pending.pop_back();
        const std::unique_ptr<DIR, int (*)(DIR*)> listing(
            ::opendir(QFile::encodeName(path).constData()), &::closedir);
        if (!listing)
            continue;
        while (const dirent* each = ::readdir(listing.get())) {
            if (each->d_name[0] == '.')
                continue;
            const auto name = nameFrom(each->d_name);
            if (!name)
                continue;
            const FolderEntry entry{pathBelow(path, *name), *name, isFolder(listing.get(), *each)};
            visit(entry);
            if (entry.isFolder)
                pending.push_back(entry.path);
        }
    }
}

QString pathBelow(const QString& folder, const QString& name)
{
    qsizetype length = folder.size();
    while (length > 0 && folder[length - 1] == u'/')
        --length;
    return folder.first(length) + u'/' + name;
}

std::optional<std::chrono::system_clock::time_point> modificationTime(const QString& path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    const timespec& time = status.st_mtim;
    return std::chrono::system_clock::time_point(std::chrono::seconds(time.tv_sec) +
                                                 std::chrono::nanoseconds(time.tv_nsec));
}

} // namespace jotwell

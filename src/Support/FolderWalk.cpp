#include "Support/FolderWalk.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

using Listing = std::unique_ptr<DIR, int (*)(DIR*)>;

Listing listingOf(const QByteArray& path, int flags)
{
    const int folder = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags);
    Listing listing(folder < 0 ? nullptr : ::fdopendir(folder), &::closedir);
    if (folder >= 0 && !listing)
        ::close(folder);
    return listing;
}

bool isFolder(int parent, const dirent& entry)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    const auto status = fileStatusIn(parent, entry.d_name);
    return status && status->kind == FileStatus::Kind::folder;
}

QByteArray withSlash(const QString& folder)
{
    QByteArray path = folder.toUtf8();
    while (path.endsWith('/'))
        path.chop(1);
    return path + '/';
}

// One descriptor is open at a time, so that no depth can use them up.
class Walk {
public:
    explicit Walk(const std::function<void(const FolderEntry&)>& visit) : m_visit(visit) {}

    Result<void, SystemError> run(const QString& folder)
    {
        if (folder.isEmpty() || folder.contains(QChar::Null))
            return SystemError{folder.isEmpty() ? ENOENT : EINVAL};
        const QByteArray top = withSlash(folder);
        const Listing listing = listingOf(top, 0);
        if (!listing)
            return SystemError::last();
        visitAll(top, listing.get());
        while (!m_pending.empty()) {
            const QByteArray path = std::move(m_pending.back());
            m_pending.pop_back();
            visitFolder(path);
        }
        return {};
    }

private:
    void visitFolder(const QByteArray& path)
    {
        // It may have become a link since it was seen.
        if (const Listing listing = listingOf(path, O_NOFOLLOW))
            visitAll(path + '/', listing.get());
    }

    void visitAll(const QByteArray& parent, DIR* listing)
    {
        const int folder = ::dirfd(listing);
        while (const dirent* each = ::readdir(listing)) {
            const QByteArrayView name(static_cast<const char*>(each->d_name));
            if (name.startsWith('.') || !name.isValidUtf8())
                continue;
            setPath(parent, name);
            const FolderEntry entry(folder, m_path, parent.size(), isFolder(folder, *each));
            m_visit(entry);
            if (entry.isFolder())
                m_pending.emplace_back(m_path.constData(), m_path.size());
        }
    }

    void setPath(const QByteArray& parent, QByteArrayView name)
    {
        m_path.resize(parent.size() + name.size());
        char* const bytes = m_path.data();
        std::memcpy(bytes, parent.constData(), static_cast<size_t>(parent.size()));
        std::memcpy(bytes + parent.size(), name.data(), static_cast<size_t>(name.size()));
    }

    const std::function<void(const FolderEntry&)>& m_visit;
    QByteArray m_path; ///< of the entry that is visited; one for all, which saves an allocation
    std::vector<QByteArray> m_pending;
};

} // namespace

Result<void, SystemError> walkFolder(const QString& folder,
                                     const std::function<void(const FolderEntry&)>& visit)
{
    return Walk(visit).run(folder);
}

QString pathBelow(const QString& folder, const QString& name)
{
    qsizetype length = folder.size();
    while (length > 0 && folder[length - 1] == u'/')
        --length;
    return folder.first(length) + u'/' + name;
}

} // namespace jotwell

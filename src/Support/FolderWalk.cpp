#include "Support/FolderWalk.h"

#include <QDir>

#include <cerrno>
#include <condition_variable>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
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

/// The folders that are still to be visited, for those who visit them. Only paths wait, and each
/// visitor has one folder open at a time, so that no depth can use up the descriptors.
class PendingFolders {
public:
    /// Blocks while only folders that are being visited could bring more; none in the end. What is
    /// got is to be reported to `addFound`.
    std::optional<QByteArray> next()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_paths.empty() || m_beingVisited == 0; });
        if (m_paths.empty())
            return std::nullopt;
        ++m_beingVisited;
        QByteArray path = std::move(m_paths.back());
        m_paths.pop_back();
        return path;
    }

    /// The folders found in one of them, which has been visited.
    void addFound(std::vector<QByteArray>& folders)
    {
        {
            const std::scoped_lock lock(m_mutex);
            --m_beingVisited;
            for (QByteArray& folder : folders)
                m_paths.push_back(std::move(folder));
        }
        folders.clear();
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<QByteArray> m_paths;
    int m_beingVisited = 1; ///< at first the folder that the walk starts from
};

/// One thread's part in a walk.
class Walker {
public:
    Walker(const FolderVisit& visit, PendingFolders& pending) : m_visit(visit), m_pending(pending)
    {
    }

    void visitTop(const QByteArray& path, DIR* listing)
    {
        visitAll(path, listing);
        m_pending.addFound(m_found);
    }

    void visitPending()
    {
        while (const auto path = m_pending.next()) {
            // It may have become a link since it was seen.
            if (const Listing listing = listingOf(*path, O_NOFOLLOW))
                visitAll(*path + '/', listing.get());
            m_pending.addFound(m_found);
        }
    }

private:
    void visitAll(const QByteArray& parent, DIR* listing)
    {
        const int folder = ::dirfd(listing);
        while (const dirent* each = ::readdir(listing)) {
            const char* const name = each->d_name;
            if (name[0] == '.' || !QByteArrayView(name).isValidUtf8())
                continue;
            const FolderEntry entry(folder, parent, name, isFolder(folder, *each), m_path);
            m_visit(entry);
            if (entry.isFolder())
                m_found.emplace_back(entry.path().constData(), entry.path().size());
        }
    }

    const FolderVisit& m_visit;
    PendingFolders& m_pending;
    std::vector<QByteArray> m_found; ///< the folders in the one that is being visited
    QByteArray m_path; ///< of the entry that is visited; one for all saves the allocations
};

std::vector<std::thread> startOthers(const std::vector<FolderVisit>& visits,
                                     PendingFolders& pending)
{
    std::vector<std::thread> others;
    try {
        for (size_t each = 1; each < visits.size(); ++each)
            others.emplace_back([&, each] { Walker(visits[each], pending).visitPending(); });
    } catch (const std::system_error&) {
        // The system has no more threads: fewer do it as well.
    }
    return others;
}

} // namespace

const QByteArray& FolderEntry::path() const
{
    m_path.resize(m_parent.size() + m_name.size());
    char* const bytes = m_path.data();
    std::memcpy(bytes, m_parent.constData(), static_cast<size_t>(m_parent.size()));
    std::memcpy(bytes + m_parent.size(), m_name.data(), static_cast<size_t>(m_name.size()));
    return m_path;
}

Result<void, SystemError> walkFolder(const QString& folder, const FolderVisit& visit)
{
    return walkFolder(folder, std::vector{visit});
}

Result<void, SystemError> walkFolder(const QString& folder, const std::vector<FolderVisit>& visits)
{
    if (folder.isEmpty() || folder.contains(QChar::Null))
        return SystemError{folder.isEmpty() ? ENOENT : EINVAL};
    const QByteArray path = withSlash(folder);
    const Listing top = listingOf(path, 0);
    if (!top)
        return SystemError::last();
    PendingFolders pending;
    std::vector<std::thread> others = startOthers(visits, pending);
    Walker walker(visits.front(), pending);
    walker.visitTop(path, top.get());
    walker.visitPending();
    for (std::thread& other : others)
        other.join();
    return {};
}

QString pathBelow(const QString& folder, const QString& name)
{
    qsizetype length = folder.size();
    while (length > 0 && folder[length - 1] == u'/')
        --length;
    return folder.first(length) + u'/' + name;
}

QString withHome(const QString& path)
{
    if (path == u'~' || path.startsWith(QLatin1String("~/")))
        return QDir::homePath() + path.sliced(1);
    return path;
}

} // namespace jotwell

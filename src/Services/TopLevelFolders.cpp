#include "Services/TopLevelFolders.h"

#include "Platform/Clock.h"
#include "Platform/FileSystems.h"
#include "Support/TextUnits.h"

#include <QFile>

#include <algorithm>

#include <dirent.h>

namespace jotwell {

namespace {

using OpenFolder = std::unique_ptr<DIR, int (*)(DIR*)>;

bool isVisible(const char* name)
{
    return name[0] != '.' && QByteArrayView(name).isValidUtf8();
}

bool leadsToFolder(const QByteArray& path)
{
    const auto status = fileStatus(path, Links::follow);
    return status && status->kind == FileStatus::Kind::folder;
}

} // namespace

TopLevelFolders::TopLevelFolders(const Clock& clock, FileSystems& fileSystems)
    : m_clock(clock), m_fileSystems(fileSystems)
{
}

QStringList TopLevelFolders::below(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder);
    const auto status = fileStatus(path, Links::follow);
    if (!status)
        return {};
    std::shared_ptr<const Listing> listing;
    {
        const std::scoped_lock lock(m_mutex);
        listing = m_last;
    }
    if (!listing || listing->path != path || listing->status != *status)
        listing = listed(path);
    return listing ? foldersOf(*listing) : QStringList();
}

// None if the folder can't be read, or not be entered: nothing in it can then be seen to be a
// folder.
std::shared_ptr<const TopLevelFolders::Listing> TopLevelFolders::listed(const QByteArray& path)
{
    const auto readAt = m_clock.now();
    const OpenFolder open(::opendir(path.constData()), &::closedir);
    if (!open)
        return nullptr;
    const auto status = fileStatusIn(::dirfd(open.get()), ".");
    if (!status)
        return nullptr;
    const auto listing = std::make_shared<Listing>();
    listing->path = path;
    listing->status = *status;
    while (const dirent* entry = ::readdir(open.get())) {
        if (!isVisible(entry->d_name))
            continue;
        if (entry->d_type == DT_DIR)
            listing->folders.append(QString::fromUtf8(entry->d_name));
        else if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN)
            listing->doubtful.push_back(
                {QString::fromUtf8(entry->d_name), path + '/' + entry->d_name});
    }
    std::sort(listing->folders.begin(), listing->folders.end(), precedesByCodePoint);
    std::sort(listing->doubtful.begin(), listing->doubtful.end(),
              [](const Doubtful& left, const Doubtful& right) {
                  return precedesByCodePoint(left.name, right.name);
              });
    const std::scoped_lock lock(m_mutex);
    m_last = isProof(*listing, readAt) ? listing : nullptr;
    return listing;
}

// Whether the same status, seen again, proves that the listing still holds.
bool TopLevelFolders::isProof(const Listing& listing, std::chrono::system_clock::time_point readAt)
{
    const std::chrono::nanoseconds settled = readAt.time_since_epoch() - settlingTime;
    return listing.status.changeTime < settled.count() &&
           m_fileSystems.keepsChangeTimes(listing.path.constData()).value_or(false);
}

// What a link leads to can change without any trace in the folder.
QStringList TopLevelFolders::foldersOf(const Listing& listing)
{
    if (listing.doubtful.empty())
        return listing.folders;
    QStringList folders = listing.folders;
    for (const Doubtful& each : listing.doubtful) {
        if (leadsToFolder(each.path))
            folders.append(each.name);
    }
    std::inplace_merge(folders.begin(), folders.begin() + listing.folders.size(), folders.end(),
                       precedesByCodePoint);
    return folders;
}

} // namespace jotwell

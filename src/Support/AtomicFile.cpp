#include "Support/AtomicFile.h"

#include "Platform/FileCalls.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QRandomGenerator>
#include <QSet>

#include <cerrno>
#include <memory>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

using Outcome = Result<void, SystemError>;

constexpr mode_t newFileMode = 0666; // less the umask, as for any program's files
constexpr mode_t ownerOnlyMode = 0600;

// Hidden, so that neither Obsidian nor the index takes a temporary for a note.
constexpr char temporarySuffix[] = ".jotwell-tmp";

QByteArray temporaryName(const QByteArray& folder)
{
    const quint64 number = QRandomGenerator::system()->generate64();
    return folder + "/." + QByteArray::number(number, 16).rightJustified(16, '0') + temporarySuffix;
}

bool isUnsupported(int code)
{
    return code == EOPNOTSUPP || code == ENOTSUP || code == EINVAL || code == ENOSYS ||
           code == EISDIR;
}

/// Where the bytes are to go once all links on the way are followed.
struct Target {
    QByteArray path;
    QByteArray folder;
    std::optional<mode_t> mode; ///< of the file that is there
};

Result<QByteArray, SystemError> linkFollowed(QByteArray path)
{
    constexpr int mostLinks = 40;
    for (int followed = 0; followed < mostLinks; ++followed) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length =
            ::readlink(path.constData(), target.data(), static_cast<size_t>(target.size()));
        if (length < 0)
            return path; // no link, or nothing there yet
        target.truncate(length);
        path = target.startsWith('/') ? target : path.first(path.lastIndexOf('/') + 1) + target;
    }
    return SystemError{ELOOP};
}

Result<Target, SystemError> resolved(const QString& path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        return SystemError{EINVAL};
    // Not cleaned: behind a link to a folder, ".." is another folder than the text says.
    const QString absolute = path.startsWith(u'/') ? path : QDir::currentPath() + u'/' + path;
    const auto followed = linkFollowed(QFile::encodeName(absolute));
    if (!followed)
        return followed.error();
    Target target{*followed, followed->first(std::max<qsizetype>(followed->lastIndexOf('/'), 1)),
                  std::nullopt};
    struct stat status = {};
    if (::stat(target.path.constData(), &status) != 0)
        return target;
    if (S_ISDIR(status.st_mode))
        return SystemError{EISDIR};
    if (!S_ISREG(status.st_mode))
        return SystemError{EINVAL};
    target.mode = status.st_mode & 07777;
    return target;
}

// A write that was killed left its temporary to the next process: one look for each folder will do.
bool isFirstWriteInto(const QByteArray& folder)
{
    static QMutex mutex;
    static QSet<QByteArray> known;
    const QMutexLocker lock(&mutex);
    const bool isFirst = !known.contains(folder);
    known.insert(folder);
    return isFirst;
}

class Descriptor {
public:
    Descriptor(FileCalls& calls, int number) : m_calls(&calls), m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            m_calls->close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

private:
    FileCalls* m_calls;
    int m_number;
};

/// One write from its temporary file to its last sync.
class Writing {
public:
    Writing(FileCalls& calls, const Target& target, mode_t mode)
        : m_calls(calls), m_target(target), m_mode(mode),
          m_folder(calls,
                   calls.open(target.folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0)),
          m_folderError(SystemError::last()), m_replaces(target.mode.has_value())
    {
    }

    Outcome run(const QByteArray& bytes)
    {
        if (!m_folder.isOpen())
            return m_folderError;
        const int nameless = m_calls.openNameless(m_target.folder.constData(), newMode());
        if (nameless >= 0)
            return runNameless(Descriptor(m_calls, nameless), bytes);
        if (isUnsupported(errno))
            return runNamed(bytes);
        return SystemError::last();
    }

private:
    [[nodiscard]] mode_t newMode() const
    {
        return m_mode == ownerOnlyMode ? ownerOnlyMode : newFileMode;
    }

    Outcome runNameless(const Descriptor& file, const QByteArray& bytes)
    {
        if (isFirstWriteInto(m_target.folder))
            removeStaleTemporaries();
        if (const auto filled = fill(file, bytes); !filled)
            return filled;
        if (m_calls.linkNameless(file.number(), m_target.path.constData()) == 0)
            return syncedOrUndone([this] { m_calls.unlink(m_target.path.constData()); });
        if (errno == ENOENT || isUnsupported(errno)) // no /proc to name it by
            return runNamed(bytes);
        if (errno != EEXIST)
            return SystemError::last();
        m_replaces = true;
        removeStaleTemporaries();
        const QByteArray temporary = temporaryName(m_target.folder);
        if (m_calls.linkNameless(file.number(), temporary.constData()) != 0)
            return SystemError::last();
        return putInPlace(temporary);
    }

    // For file systems without nameless files: FAT, network and user-space ones.
    Outcome runNamed(const QByteArray& bytes)
    {
        removeStaleTemporaries();
        const QByteArray temporary = temporaryName(m_target.folder);
        const Descriptor file(m_calls,
                              m_calls.open(temporary.constData(),
                                           O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, newMode()));
        if (!file.isOpen())
            return SystemError::last();
        if (const auto filled = fill(file, bytes); !filled) {
            m_calls.unlink(temporary.constData());
            return filled;
        }
        return putInPlace(temporary);
    }

    Outcome fill(const Descriptor& file, const QByteArray& bytes)
    {
        ::flock(file.number(), LOCK_EX | LOCK_NB); // tells a temporary in use from a stale one
        if (m_target.mode && m_calls.fchmod(file.number(), m_mode) != 0)
            return SystemError::last();
        qsizetype written = 0;
        while (written < bytes.size()) {
            const ssize_t count = m_calls.write(file.number(), bytes.constData() + written,
                                                static_cast<size_t>(bytes.size() - written));
            if (count < 0 && errno == EINTR)
                continue;
            if (count < 0)
                return SystemError::last();
            written += count;
        }
        if (m_calls.fsync(file.number()) != 0)
            return SystemError::last();
        return {};
    }

    Outcome putInPlace(const QByteArray& temporary)
    {
        const char* const from = temporary.constData();
        const char* const to = m_target.path.constData();
        if (m_replaces && m_calls.exchange(from, to) == 0) {
            const auto synced = syncedOrUndone([&] { m_calls.exchange(from, to); });
            m_calls.unlink(from);
            return synced;
        }
        if (m_calls.rename(from, to) != 0) {
            const SystemError error = SystemError::last();
            m_calls.unlink(from);
            return error;
        }
        if (m_replaces) { // replaced without a way back: it stands, whatever the sync says
            m_calls.fsync(m_folder.number());
            return {};
        }
        return syncedOrUndone([&] { m_calls.unlink(to); });
    }

    template <typename Undo>
    Outcome syncedOrUndone(Undo undo)
    {
        // Some file systems have no sync of folders; there the rename is all there is.
        if (m_calls.fsync(m_folder.number()) == 0 || isUnsupported(errno))
            return {};
        const SystemError error = SystemError::last();
        undo();
        return error;
    }

    // What a killed write may have left; one that still runs holds a lock on its own.
    void removeStaleTemporaries()
    {
        const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(m_target.folder.constData()),
                                                          &::closedir);
        while (const dirent* each = listing ? ::readdir(listing.get()) : nullptr) {
            const QByteArrayView name(each->d_name);
            if (!name.startsWith('.') || !name.endsWith(temporarySuffix))
                continue;
            const QByteArray path = m_target.folder + '/' + each->d_name;
            const Descriptor left(
                m_calls, ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
            if (left.isOpen() && ::flock(left.number(), LOCK_EX | LOCK_NB) == 0)
                m_calls.unlink(path.constData());
        }
    }

    FileCalls& m_calls;
    const Target& m_target;
    mode_t m_mode;
    Descriptor m_folder;
    SystemError m_folderError;
    bool m_replaces; ///< a file of that name is there, or has come meanwhile
};

} // namespace

Result<void, SystemError> AtomicFile::write(const QString& path, const QByteArray& bytes,
                                            Permissions permissions) const
{
    const auto target = resolved(path);
    if (!target)
        return target.error();
    const mode_t mode =
        permissions == Permissions::ownerOnly ? ownerOnlyMode : target->mode.value_or(newFileMode);
    return Writing(m_calls, *target, mode).run(bytes);
}

} // namespace jotwell

#pragma once

#include "Support/FileStatus.h"

#include <QByteArray>
#include <QStringList>

#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

namespace jotwell {

class Clock;
class FileSystems;

/// The folders at the top of the vault, for the input language, which asks for them at each key
/// stroke. The last listing holds as long as the folder's own status, looked at each time, proves
/// that nothing has come or gone since. Any thread.
class TopLevelFolders {
public:
    /// What changes a folder within this time of its change time may leave that as it is: the tick
    /// of a file system's clock, with room for coarse ones.
    static constexpr std::chrono::seconds settlingTime{2};

    TopLevelFolders(const Clock& clock, FileSystems& fileSystems);

    /// Names of the visible folders directly below `folder`, links to folders among them, sorted by
    /// code point; none if it can't be listed. Blocks for a system call, and one for each link; for
    /// a listing where there is a reason for one.
    [[nodiscard]] QStringList below(const QString& folder);

private:
    /// An entry that may be a folder or not, with nothing in the listing to tell.
    struct Doubtful {
        QString name;
        QByteArray path;
    };
    struct Listing {
        QByteArray path;
        FileStatus status;              ///< of the folder, before it was read
        QStringList folders;            ///< sorted
        std::vector<Doubtful> doubtful; ///< links, sorted
    };

    [[nodiscard]] std::shared_ptr<const Listing> listed(const QByteArray& path);
    [[nodiscard]] bool isProof(const Listing& listing,
                               std::chrono::system_clock::time_point readAt);
    [[nodiscard]] static QStringList foldersOf(const Listing& listing);

    const Clock& m_clock;
    FileSystems& m_fileSystems;
    std::mutex m_mutex;
    std::shared_ptr<const Listing> m_last; ///< the last one that its status can vouch for
};

} // namespace jotwell

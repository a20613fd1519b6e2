#pragma once

#include "Platform/Clock.h"
#include "Services/Index/ContentHash.h"
#include "Services/Index/NoteFile.h"

#include <QByteArray>
#include <QHash>

#include <array>
#include <mutex>
#include <optional>

namespace jotwell {

class FileSystems;

/// Remembers which bytes a file was found to hold under which status, so that a file that the file
/// system says is unchanged need not be read again. A status counts only if it was old enough when
/// the file was read: a write that falls into the same tick of the file system's clock as the
/// reading would leave no trace in it. Any thread.
class FileReadings {
public:
    FileReadings(const Clock& clock, FileSystems& fileSystems);

    /// The moment to take before a file is looked at and read, for `remember`.
    [[nodiscard]] Clock::TimePoint now() const { return m_clock.now(); }
    /// The hash of the bytes that the file at `path` is sure to hold still.
    [[nodiscard]] std::optional<ContentHash> known(const QByteArray& path,
                                                   const FileStatus& status) const;
    void remember(const QByteArray& path, const FileStatus& status, ContentHash hash,
                  Clock::TimePoint readAt);
    void forget(const QByteArray& path);

private:
    struct Reading {
        FileStatus status;
        ContentHash hash = 0;
        Clock::TimePoint readAt;
    };
    struct Shard {
        mutable std::mutex mutex;
        QHash<QByteArray, Reading> readings;
    };

    const Clock& m_clock;
    FileSystems& m_fileSystems;
    std::array<Shard, 64> m_shards;
};

} // namespace jotwell

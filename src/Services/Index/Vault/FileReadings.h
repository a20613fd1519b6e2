#pragma once

#include "Platform/Clock.h"
#include "Services/Index/ContentHash.h"
#include "Services/Index/Vault/NoteFile.h"

#include <QByteArray>
#include <QHash>

#include <array>
#include <chrono>
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
    /// What can be written to a file within this time of its change time without changing it: the
    /// tick of a file system's clock, and writes through a memory map that go on.
    static constexpr std::chrono::seconds settlingTime{60};

    FileReadings(const Clock& clock, FileSystems& fileSystems);

    /// The moment to take before a file is read, for `remember`.
    [[nodiscard]] Clock::TimePoint now() const { return m_clock.now(); }
    /// The hash of the bytes that the file at `path` is sure to hold still.
    [[nodiscard]] std::optional<ContentHash> known(const QByteArray& path,
                                                   const FileStatus& status) const;
    /// That the file at `path` held the bytes of this hash at `readAt` or later; `status` is from
    /// before it was read.
    void remember(const QByteArray& path, const FileStatus& status, ContentHash hash,
                  Clock::TimePoint readAt);
    void forget(const QByteArray& path);
    /// Forgets every file.
    void clear();

private:
    /// Of a regular file, under a status that can be trusted; others aren't kept. Paths and states
    /// are kept as keyed hashes, which takes a quarter of the room.
    struct Reading {
        ContentHash status = 0;
        ContentHash content = 0;
    };
    struct Shard {
        mutable std::mutex mutex;
        QHash<ContentHash, Reading> readings; ///< by path
    };

    [[nodiscard]] bool keepsChangeTimes(const QByteArray& path, quint64 device);
    [[nodiscard]] const Shard& shardOf(ContentHash path) const;
    [[nodiscard]] Shard& shardOf(ContentHash path);

    const Clock& m_clock;
    FileSystems& m_fileSystems;
    std::mutex m_devicesMutex;
    QHash<quint64, bool> m_keepsChangeTimes; ///< by device
    std::array<Shard, 64> m_shards;
};

} // namespace jotwell

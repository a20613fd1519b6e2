#include "Services/Index/FileReadings.h"

#include "Platform/FileSystems.h"

namespace jotwell {

namespace {

bool hasSettled(const FileStatus& status, Clock::TimePoint readAt)
{
    const std::chrono::nanoseconds read = readAt.time_since_epoch();
    return status.changeTime < (read - FileReadings::settlingTime).count();
}

} // namespace

FileReadings::FileReadings(const Clock& clock, FileSystems& fileSystems)
    : m_clock(clock), m_fileSystems(fileSystems)
{
}

std::optional<ContentHash> FileReadings::known(const QByteArray& path,
                                               const FileStatus& status) const
{
    const Shard& shard = m_shards[shardOf(path)];
    const std::scoped_lock lock(shard.mutex);
    const auto found = shard.readings.constFind(path);
    if (found == shard.readings.cend())
        return std::nullopt;
    const FileStatus then{FileStatus::Kind::regular, found->size,  found->modificationTime,
                          found->changeTime,         found->inode, found->device};
    return status == then ? std::optional(found->hash) : std::nullopt;
}

void FileReadings::remember(const QByteArray& path, const FileStatus& status, ContentHash hash,
                            Clock::TimePoint readAt)
{
    // A link's own status says nothing of the bytes of its target.
    const bool isTrusted = status.kind == FileStatus::Kind::regular && hasSettled(status, readAt) &&
                           keepsChangeTimes(path, status.device);
    if (!isTrusted) {
        forget(path);
        return;
    }
    Shard& shard = m_shards[shardOf(path)];
    const std::scoped_lock lock(shard.mutex);
    shard.readings.insert(path, {status.size, status.modificationTime, status.changeTime,
                                 status.inode, status.device, hash});
}

void FileReadings::forget(const QByteArray& path)
{
    Shard& shard = m_shards[shardOf(path)];
    const std::scoped_lock lock(shard.mutex);
    shard.readings.remove(path);
}

bool FileReadings::keepsChangeTimes(const QByteArray& path, quint64 device)
{
    {
        const std::scoped_lock lock(m_devicesMutex);
        const auto known = m_keepsChangeTimes.constFind(device);
        if (known != m_keepsChangeTimes.cend())
            return *known;
    }
    // Asked without the lock, as the answer may come across a network.
    const auto answer = m_fileSystems.keepsChangeTimes(path.constData());
    if (!answer)
        return false;
    const std::scoped_lock lock(m_devicesMutex);
    m_keepsChangeTimes.insert(device, *answer);
    return *answer;
}

std::size_t FileReadings::shardOf(const QByteArray& path) const
{
    return qHash(path) % m_shards.size();
}

} // namespace jotwell

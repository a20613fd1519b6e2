#include "Services/Index/Vault/FileReadings.h"

#include "Platform/FileSystems.h"

namespace jotwell {

namespace {

bool hasSettled(const FileStatus& status, Clock::TimePoint readAt)
{
    const std::chrono::nanoseconds read = readAt.time_since_epoch();
    return status.changeTime < (read - FileReadings::settlingTime).count();
}

ContentHash hashOf(const FileStatus& status)
{
    const std::array<qint64, 5> fields{status.size, status.modificationTime, status.changeTime,
                                       static_cast<qint64>(status.inode),
                                       static_cast<qint64>(status.device)};
    return calculateHash(QByteArrayView(reinterpret_cast<const char*>(fields.data()),
                                        static_cast<qsizetype>(sizeof(fields))));
}

} // namespace

FileReadings::FileReadings(const Clock& clock, FileSystems& fileSystems)
    : m_clock(clock), m_fileSystems(fileSystems)
{
}

std::optional<ContentHash> FileReadings::known(const QByteArray& path,
                                               const FileStatus& status) const
{
    if (status.kind != FileStatus::Kind::regular)
        return std::nullopt;
    const ContentHash key = calculateHash(path);
    const ContentHash now = hashOf(status);
    const Shard& shard = shardOf(key);
    const std::scoped_lock lock(shard.mutex);
    const auto found = shard.readings.constFind(key);
    if (found == shard.readings.cend() || found->status != now)
        return std::nullopt;
    return found->content;
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
    const ContentHash key = calculateHash(path);
    Shard& shard = shardOf(key);
    const std::scoped_lock lock(shard.mutex);
    shard.readings.insert(key, {hashOf(status), hash});
}

void FileReadings::forget(const QByteArray& path)
{
    const ContentHash key = calculateHash(path);
    Shard& shard = shardOf(key);
    const std::scoped_lock lock(shard.mutex);
    shard.readings.remove(key);
}

void FileReadings::clear()
{
    for (Shard& shard : m_shards) {
        const std::scoped_lock lock(shard.mutex);
        shard.readings.clear();
    }
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

const FileReadings::Shard& FileReadings::shardOf(ContentHash path) const
{
    return m_shards[path % m_shards.size()];
}

FileReadings::Shard& FileReadings::shardOf(ContentHash path)
{
    return m_shards[path % m_shards.size()];
}

} // namespace jotwell

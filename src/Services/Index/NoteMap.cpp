#include "Services/Index/NoteMap.h"

#include <utility>

namespace jotwell {

namespace {

std::size_t shardOf(const QByteArray& path)
{
    // The shard's own table goes by the low bits of its hash: these are to be other ones.
    return (qHash(path, 0x5eed) >> 24) % NoteMap::shardCount;
}

} // namespace

const FileMetadata* NoteMap::find(const QByteArray& path) const
{
    const Shard& shard = m_shards[shardOf(path)];
    const auto found = shard.constFind(path);
    return found == shard.constEnd() ? nullptr : found->get();
}

FileMetadataPtr NoteMap::insert(FileMetadataPtr record)
{
    Shard& shard = m_shards[shardOf(record->path)];
    const qsizetype before = shard.size();
    FileMetadataPtr& place = shard[record->path]; // the key shares the record's bytes
    m_size += shard.size() - before;
    return std::exchange(place, std::move(record));
}

bool NoteMap::remove(const QByteArray& path)
{
    const bool isRemoved = m_shards[shardOf(path)].remove(path);
    m_size -= isRemoved ? 1 : 0;
    return isRemoved;
}

} // namespace jotwell

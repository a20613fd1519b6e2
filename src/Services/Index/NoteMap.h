#pragma once

#include "Services/Index/FileMetadata.h"

#include <QHash>

#include <array>

namespace jotwell {

/// The records of a vault by their path. A copy is made in microseconds, however many they are, and
/// stays as it was when the original changes: it is what work in the background reads. The records
/// lie in shards for that; a change touches only one of them. A value: each copy belongs to one
/// thread at a time.
class NoteMap {
public:
    using Shard = QHash<QByteArray, FileMetadataPtr>;
    static constexpr std::size_t shardCount = 256;

    /// Nothing if there is no such note. The record lives as long as this copy of the map has it.
    [[nodiscard]] const FileMetadata* find(const QByteArray& path) const;
    /// Gives back the record of the same path whose place it takes, if there was one.
    FileMetadataPtr insert(FileMetadataPtr record);
    bool remove(const QByteArray& path);

    [[nodiscard]] qsizetype size() const { return m_size; }
    [[nodiscard]] const std::array<Shard, shardCount>& shards() const { return m_shards; }

    template <typename Visit>
    void forEach(Visit visit) const
    {
        for (const Shard& shard : m_shards) {
            for (const FileMetadataPtr& record : shard)
                visit(record);
        }
    }

private:
    std::array<Shard, shardCount> m_shards;
    qsizetype m_size = 0;
};

} // namespace jotwell

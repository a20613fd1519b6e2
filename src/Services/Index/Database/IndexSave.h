#pragma once

#include "Services/Index/NoteMap.h"

#include <QtGlobal>

#include <cstddef>
#include <optional>
#include <vector>

namespace jotwell {

class ContentWriter;
class IndexConnection;

/// The saving of all notes of an index, a few at a time, so that others get at the database in
/// between. When a damaged file has been replaced, it starts over on the new one. On the database's
/// thread.
class IndexSave {
public:
    explicit IndexSave(NoteMap notes) : m_notes(std::move(notes)) {}

    /// Does some milliseconds of it.
    void runSlice(IndexConnection& connection);
    /// Also to be asked where the end of a slice has been awaited.
    [[nodiscard]] bool isFinished() const { return m_isFinished; }

private:
    void start(IndexConnection& connection);
    int compactIfNeeded(IndexConnection& connection);
    int writeRows(IndexConnection& connection);
    int writeNextRow(IndexConnection& connection, ContentWriter& writer);
    [[nodiscard]] std::size_t rowCount() const { return m_records.size() + m_restored.size(); }
    void finish(IndexConnection& connection);

    NoteMap m_notes;
    std::vector<const FileMetadata*> m_records; ///< of `m_notes`, in its order
    std::vector<qint64> m_restored;             ///< rows that only need an entry, behind them
    std::size_t m_next = 0;                     ///< of both
    std::optional<int> m_generation;            ///< of the file that it writes to
    bool m_isCompacted = false;
    bool m_isFinished = false;
};

} // namespace jotwell

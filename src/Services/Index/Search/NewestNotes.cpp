#include "Services/Index/Search/NewestNotes.h"

#include <algorithm>

namespace jotwell {

namespace {

bool precedes(const FileMetadata* left, const FileMetadata* right)
{
    if (left->modificationDate != right->modificationDate)
        return left->modificationDate > right->modificationDate;
    return left->path < right->path;
}

} // namespace

bool NewestNotes::wouldTake(const FileMetadata& note) const
{
    return m_heap.size() < m_limit || precedes(&note, m_heap.front());
}

void NewestNotes::take(const FileMetadata& note)
{
    if (!wouldTake(note))
        return;
    if (m_heap.size() == m_limit) {
        std::pop_heap(m_heap.begin(), m_heap.end(), precedes);
        m_heap.pop_back();
    }
    m_heap.push_back(&note);
    std::push_heap(m_heap.begin(), m_heap.end(), precedes);
}

void NewestNotes::takeAll(const NewestNotes& others)
{
    for (const FileMetadata* note : others.m_heap)
        take(*note);
}

std::vector<const FileMetadata*> NewestNotes::sorted() const
{
    std::vector<const FileMetadata*> notes = m_heap;
    std::sort(notes.begin(), notes.end(), precedes);
    return notes;
}

} // namespace jotwell

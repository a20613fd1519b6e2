#include "Services/Input/CharacterRemoval.h"

#include "Support/CharacterClasses.h"

#include <algorithm>

namespace jotwell {

namespace {

// Whether a character ends between the two whatever else stands around them; `left` is no white
// space.
bool alwaysPart(QChar left, QChar right)
{
    return left.unicode() < 0x300 && right.unicode() < 0x300;
}

} // namespace

CharacterRemoval::CharacterRemoval(const QString& text)
    : m_text(text), m_boundaries(characterBoundaries(text)), m_head(text.size())
{
}

void CharacterRemoval::removeWithSpaceBefore(const TextRange& range)
{
    if (!isInHead(range.end()))
        countAnew();
    if (range.end() >= static_cast<qsizetype>(m_boundaries.size()))
        return;
    qsizetype start = m_boundaries[range.location];
    const qsizetype end = m_boundaries[range.end()];
    while (start > 0 && isSpace(m_text[start - 1].unicode()))
        --start;
    if (end < m_head)
        m_kept.push_back(QStringView(m_text).sliced(end, m_head - end));
    m_head = start;
}

QString CharacterRemoval::result() const
{
    QString result = m_text.first(m_head);
    std::for_each(m_kept.rbegin(), m_kept.rend(), [&result](QStringView each) { result += each; });
    return result;
}

// Whether the text begins with so many characters that no removal so far has touched.
bool CharacterRemoval::isInHead(qsizetype character) const
{
    if (character >= static_cast<qsizetype>(m_boundaries.size()))
        return m_head == m_text.size();
    const qsizetype end = m_boundaries[character];
    if (end != m_head || end == m_text.size() || m_kept.empty() || end == 0)
        return end <= m_head;
    return alwaysPart(m_text[end - 1], m_kept.back().front());
}

void CharacterRemoval::countAnew()
{
    m_text = result();
    m_kept.clear();
    m_boundaries = characterBoundaries(m_text);
    m_head = m_text.size();
}

} // namespace jotwell

#include "Services/Index/Search/LowercaseMatcher.h"

#include "Services/Index/Search/ByteRunPlaces.h"
#include "Services/Index/Search/CodePoints.h"
#include "Services/Index/Search/LowercaseAnchor.h"
#include "Services/Index/Search/LowercaseForms.h"

#include <algorithm>

namespace jotwell {

LowercaseMatcher::LowercaseMatcher(const QString& term)
    : m_isEmpty(term.isEmpty()), m_term(codePointsOf(term.toLower()))
{
    if (m_term.empty())
        return;
    LowercaseAnchor anchor = chooseAnchor(m_term);
    m_filters = std::move(anchor.filters);
    m_anchor = anchor.first;
    for (std::size_t place = 0; place < m_anchor; ++place)
        m_isAnchorVague |= mayShareItsOrigin(m_term, place);
}

bool LowercaseMatcher::isIn(QByteArrayView text) const
{
    const auto isFoundBy = [&](const ByteRunFilter& filter) {
        ByteRunPlaces places(filter, text);
        for (qsizetype at = places.next(); at >= 0; at = places.next()) {
            if (isAround(text, at))
                return true;
        }
        return false;
    };
    return m_isEmpty || std::any_of(m_filters.begin(), m_filters.end(), isFoundBy);
}

// Whether the term is there with its character `m_anchor` at `anchor`.
bool LowercaseMatcher::isAround(QByteArrayView text, qsizetype anchor) const
{
    if (isContinuationByte(text[anchor]))
        return false;
    qsizetype from = anchor;
    for (std::size_t before = 0; before < m_anchor; ++before) {
        if (m_isAnchorVague && isAt(text, from))
            return true;
        if (from == 0)
            return false;
        from = codePointBefore(text, from);
    }
    return isAt(text, from);
}

// The term may begin within what the character there becomes.
bool LowercaseMatcher::isAt(QByteArrayView text, qsizetype from) const
{
    if (isAt(text, from, 0))
        return true;
    if (m_term.front() != combiningDotAbove)
        return false;
    const Utf8Character first = codePointAt(text, from);
    return first.code == dottedCapitalI && isAt(text, from + first.length, 1);
}

// Whether the rest of the term, behind `matched` characters, is there.
bool LowercaseMatcher::isAt(QByteArrayView text, qsizetype from, std::size_t matched) const
{
    while (matched < m_term.size()) {
        if (from == text.size())
            return false;
        const Utf8Character next = codePointAt(text, from);
        const LowercaseForm form = lowercaseForm(next.code);
        if (form.first != m_term[matched++])
            return false;
        if (form.second != 0 && matched < m_term.size() && form.second != m_term[matched++])
            return false;
        from += next.length;
    }
    return true;
}

} // namespace jotwell

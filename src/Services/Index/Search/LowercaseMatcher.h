#pragma once

#include "Services/Index/Search/ByteRunFilter.h"

#include <QByteArrayView>
#include <QString>

#include <string>
#include <vector>

namespace jotwell {

/// Finds one text in others regardless of case: a text holds the term exactly if its lower-case
/// form holds the term's. Texts are valid UTF-8 and searched as they lie, many bytes at a time.
/// Immutable: any thread.
class LowercaseMatcher {
public:
    explicit LowercaseMatcher(const QString& term);

    /// True for an empty term; false for one with half a surrogate pair.
    [[nodiscard]] bool isIn(QByteArrayView text) const;

    /// In characters.
    [[nodiscard]] std::size_t termLength() const { return m_term.size(); }

private:
    [[nodiscard]] bool isAround(QByteArrayView text, qsizetype anchor) const;
    [[nodiscard]] bool isAt(QByteArrayView text, qsizetype from) const;
    [[nodiscard]] bool isAt(QByteArrayView text, qsizetype from, std::size_t matched) const;

    bool m_isEmpty;
    std::u32string m_term; ///< in lower case
    /// Runs of bytes, one of which lies in every text that holds the term, in the place of the
    /// term's characters from `m_anchor` on.
    std::vector<ByteRunFilter> m_filters;
    std::size_t m_anchor = 0;
    bool m_isAnchorVague = false; ///< how many characters lie before it in a text can't be said
};

} // namespace jotwell

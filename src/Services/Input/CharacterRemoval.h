#pragma once

#include "Support/TextUnits.h"

#include <QString>
#include <QStringView>

#include <vector>

namespace jotwell {

/// Takes stretches out of a text that are counted in characters of what is then left of it. In time
/// proportional to the text as long as each stretch lies before the one taken out last; otherwise
/// the text is counted anew for it.
class CharacterRemoval {
public:
    explicit CharacterRemoval(const QString& text);

    /// `range` in characters. A range that reaches beyond the text takes nothing out.
    void removeWithSpaceBefore(const TextRange& range);

    [[nodiscard]] QString result() const;

private:
    [[nodiscard]] bool isInHead(qsizetype character) const;
    void countAnew();

    QString m_text;
    std::vector<qsizetype> m_boundaries; ///< of the characters of `m_text`, its end included
    qsizetype m_head = 0;                ///< so much of `m_text` still stands
    std::vector<QStringView> m_kept;     ///< and these of what stood behind, the last one first
};

} // namespace jotwell

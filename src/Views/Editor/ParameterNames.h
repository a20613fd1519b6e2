#pragma once

#include "Views/Editor/PrefixIndex.h"

#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

namespace jotwell {

/// The names that may stand behind a "$", made ready to be looked for many times. Any thread, one
/// at a time.
class ParameterNames {
public:
    explicit ParameterNames(const QStringList& names);
    ParameterNames(const ParameterNames&) = delete;
    ParameterNames& operator=(const ParameterNames&) = delete;

    /// The length in UTF-16 units of the first name, in the order of the list, with which `text`
    /// begins. A name with more units than characters is never found.
    [[nodiscard]] std::optional<qsizetype> lengthAtStart(QStringView text);

private:
    [[nodiscard]] std::optional<std::size_t> placeByTrial(QStringView text);
    void makeIndex();

    QStringList m_kept;                 ///< holds what the views are of
    std::vector<QStringView> m_names;   ///< before the first empty one
    std::vector<char16_t> m_firstUnits; ///< of each of them
    bool m_hasEmptyName = false;        ///< which any text begins with
    std::size_t m_trials = 0;
    std::optional<PrefixIndex> m_index;
};

} // namespace jotwell

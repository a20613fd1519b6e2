#pragma once

#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

namespace jotwell {

/// The names that may stand behind a "$", made ready to be looked for many times. Any thread.
class ParameterNames {
public:
    explicit ParameterNames(const QStringList& names);

    /// The length in UTF-16 units of the first name, in the order of the list, with which `text`
    /// begins. A name that has more units than characters is never found.
    [[nodiscard]] std::optional<qsizetype> lengthAtStart(QStringView text) const;

private:
    QStringList m_names;
    std::vector<char16_t> m_firstUnits; ///< of each name; of an empty one, 0
};

} // namespace jotwell

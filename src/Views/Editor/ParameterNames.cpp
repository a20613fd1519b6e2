#include "Views/Editor/ParameterNames.h"

#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

ParameterNames::ParameterNames(const QStringList& names)
{
    for (const QString& name : names) {
        if (characterCount(name) != utf16Length(name))
            continue;
        m_names.append(name);
        m_firstUnits.push_back(name.isEmpty() ? u'\0' : name.front().unicode());
    }
}

std::optional<qsizetype> ParameterNames::lengthAtStart(QStringView text) const
{
    const auto found = std::find_if(m_names.begin(), m_names.end(),
                                    [text](const QString& name) { return text.startsWith(name); });
    if (found == m_names.end())
        return std::nullopt;
    return utf16Length(*found);
}

} // namespace jotwell

#include "Views/Editor/ReadyNames.h"

namespace jotwell {

// Held here as well, a list that is changed becomes another one.
ParameterNames& ReadyNames::Kept::of(const QStringList& list)
{
    if (!m_names || !list.isSharedWith(m_list)) {
        m_list = list;
        m_names.emplace(list);
    }
    return *m_names;
}

} // namespace jotwell

#pragma once

#include <QStringList>

namespace jotwell {

/// Whether the session is that of the desktop with this name, such as "GNOME". Distributions put
/// their own names before the desktop's.
[[nodiscard]] inline bool isDesktop(QStringView name)
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(name);
}

} // namespace jotwell

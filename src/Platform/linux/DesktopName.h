#pragma once

#include <QStringList>

namespace jotwell {

/// Whether the session is GNOME's. Distributions put their own name before the desktop's.
[[nodiscard]] inline bool isGnome()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(u"GNOME");
}

} // namespace jotwell

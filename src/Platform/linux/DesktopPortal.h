#pragma once

#include <QString>

namespace jotwell::DesktopPortal {

// Where the desktop's portals are on the session bus.

inline const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

/// A portal finds what implements it by the desktop's name: without one it would be started for
/// nothing.
[[nodiscard]] inline bool isOfUse()
{
    return !qEnvironmentVariableIsEmpty("XDG_CURRENT_DESKTOP");
}

} // namespace jotwell::DesktopPortal

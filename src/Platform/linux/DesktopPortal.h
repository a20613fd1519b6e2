#pragma once

#include <QDBusMessage>
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

/// A call to a portal, which is started for it if it is of use.
[[nodiscard]] inline QDBusMessage call(const QString& interface, const QString& method,
                                       const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setAutoStartService(isOfUse());
    message.setArguments(arguments);
    return message;
}

} // namespace jotwell::DesktopPortal

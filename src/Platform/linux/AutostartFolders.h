#pragma once

#include "Platform/linux/DesktopEntry.h"

#include <QStringList>

namespace jotwell {

/// Where the desktop looks for what it is to start at login, and as which desktop.
struct AutostartFolders {
    QString user;
    QStringList system;      ///< the most important first
    QByteArrayList desktops; ///< the names that the desktop goes by, the most special first

    /// Those of this process's environment.
    [[nodiscard]] static AutostartFolders ofEnvironment();

    /// Whether the desktop starts what the entry tells. Blocking.
    [[nodiscard]] bool wouldStart(const DesktopEntry& entry) const;
    /// Whether the entry is meant for this desktop.
    [[nodiscard]] bool concerns(const DesktopEntry& entry) const;
};

/// The file by which the user starts this program, as an absolute path: that of the process, and in
/// an AppImage that of the image.
[[nodiscard]] QString startedProgram();

} // namespace jotwell

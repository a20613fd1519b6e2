#pragma once

#include <QString>

namespace jotwell {

class FileCalls;

/// Whether the user has let this program have its shortcut from the desktop. It is remembered in a
/// file, since the desktop can only be asked by asking the user. Main thread.
class PortalPermission {
public:
    /// `file` is where it is remembered, with its folder; neither need exist.
    PortalPermission(QString file, FileCalls& calls);

    [[nodiscard]] bool isGiven() const { return m_isGiven; }
    /// What can't be remembered holds for the life of the process.
    void give();
    void withdraw();

private:
    const QString m_file;
    FileCalls& m_calls;
    bool m_isGiven;
};

} // namespace jotwell

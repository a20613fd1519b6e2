#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class QDBusObjectPath;

namespace jotwell {

/// Has the user's service manager know this process by the program's name, however it was started:
/// portals that can't be told take a program for what its unit is called, and keep what the user
/// has decided below that name. Main thread.
class ApplicationScope : public QObject {
    Q_OBJECT

public:
    /// Where the system says which units a process is in, and how long a manager is waited for.
    struct Conditions {
        QString unitsFile = QStringLiteral("/proc/self/cgroup");
        std::chrono::milliseconds patience = std::chrono::seconds(1);
    };

    ApplicationScope(const QDBusConnection& bus, const Conditions& conditions);

    /// Calls `entered` once: at once if the process has the name or nobody can give it one, and
    /// when patience ends at the latest. Asked anew meanwhile, it only calls the later one.
    void enter(std::function<void()> entered);

private:
    [[nodiscard]] bool isNeeded() const;
    void askForUnit();
    void finish();

    QDBusConnection m_bus;
    const QString m_unitsFile;
    QTimer m_patience;
    std::function<void()> m_entered;

private slots:
    void jobRemoved(uint id, const QDBusObjectPath& job, const QString& unit,
                    const QString& result);
};

} // namespace jotwell

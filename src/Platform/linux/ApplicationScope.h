#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>

class QDBusObjectPath;

namespace jotwell {

/// Has the user's service manager know this process by the program's name, however it was started:
/// portals that can't be told take a program for what its unit is called, and keep what the user
/// has decided below that name. Main thread.
class ApplicationScope : public QObject {
    Q_OBJECT

public:
    /// `unitsFile` is where the system says which units the process is in.
    explicit ApplicationScope(const QDBusConnection& bus,
                              QString unitsFile = QStringLiteral("/proc/self/cgroup"));

    /// Calls `entered` once: at once if the process has the name or nobody can give it one, and
    /// after a second at the latest.
    void enter(std::function<void()> entered);

private:
    [[nodiscard]] bool isNeeded() const;
    void askForUnit();
    void finish();

    QDBusConnection m_bus;
    const QString m_unitsFile;
    std::function<void()> m_entered;

private slots:
    void jobRemoved(uint id, const QDBusObjectPath& job, const QString& unit,
                    const QString& result);
};

} // namespace jotwell

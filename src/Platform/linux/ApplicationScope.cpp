#include "Platform/linux/ApplicationScope.h"

#include "Platform/linux/TransientUnit.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QTimer>

#include <utility>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

const QString service = QStringLiteral("org.freedesktop.systemd1");
const QString path = QStringLiteral("/org/freedesktop/systemd1");
const QString interface = QStringLiteral("org.freedesktop.systemd1.Manager");
constexpr auto patience = 1s;

QString scopeName()
{
    return QStringLiteral("app-com.jotwell.Jotwell-%1.scope")
        .arg(QCoreApplication::applicationPid());
}

} // namespace

ApplicationScope::ApplicationScope(const QDBusConnection& bus, QString unitsFile)
    : m_bus(bus), m_unitsFile(std::move(unitsFile))
{
    registerTransientUnit();
    qRegisterMetaType<QDBusObjectPath>(); // slots are found by the names of known types
}

void ApplicationScope::enter(std::function<void()> entered)
{
    m_entered = std::move(entered);
    if (isNeeded())
        askForUnit();
    else
        finish();
}

// Units of applications are named so; what isn't below a service manager of the user has none.
bool ApplicationScope::isNeeded() const
{
    QFile file(m_unitsFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray units = file.readAll();
    return units.contains("/user.slice/") && !units.contains("app-com.jotwell.Jotwell");
}

// The process has been moved when the job has gone, not yet with the reply.
void ApplicationScope::askForUnit()
{
    m_bus.connect(service, path, interface, QStringLiteral("JobRemoved"), this,
                  SLOT(jobRemoved(uint, QDBusObjectPath, QString, QString)));
    auto call = QDBusMessage::createMethodCall(service, path, interface,
                                               QStringLiteral("StartTransientUnit"));
    call.setAutoStartService(false);
    call.setArguments(scopeOf(scopeName(), static_cast<uint>(QCoreApplication::applicationPid())));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (watcher->isError())
            finish();
    });
    QTimer::singleShot(patience, this, &ApplicationScope::finish);
}

void ApplicationScope::jobRemoved(uint, const QDBusObjectPath&, const QString& unit, const QString&)
{
    if (unit == scopeName())
        finish();
}

void ApplicationScope::finish()
{
    if (const auto entered = std::exchange(m_entered, {}))
        entered();
}

} // namespace jotwell

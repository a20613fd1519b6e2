#include "Platform/linux/ApplicationScope.h"

#include "Platform/linux/TransientUnit.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QRegularExpression>

#include <utility>

namespace jotwell {

namespace {

const QString service = QStringLiteral("org.freedesktop.systemd1");
const QString path = QStringLiteral("/org/freedesktop/systemd1");
const QString interface = QStringLiteral("org.freedesktop.systemd1.Manager");
const QString jobRemovedSignal = QStringLiteral("JobRemoved");
const char* const jobRemovedSlot = SLOT(jobRemoved(uint, QDBusObjectPath, QString, QString));

// As portals read it: some desktops put their own name before the program's.
const QRegularExpression named(QStringLiteral(R"(/app-(?:[[:alnum:]]+-)?com\.jotwell\.Jotwell)"
                                              R"((?:[@-][[:alnum:]]*)?\.(?:scope|service)\b)"));

QString scopeName()
{
    return QStringLiteral("app-com.jotwell.Jotwell-%1.scope")
        .arg(QCoreApplication::applicationPid());
}

} // namespace

ApplicationScope::ApplicationScope(const QDBusConnection& bus, const Conditions& conditions)
    : m_bus(bus), m_unitsFile(conditions.unitsFile)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(conditions.patience);
    connect(&m_patience, &QTimer::timeout, this, &ApplicationScope::finish);
    registerTransientUnit();
    qRegisterMetaType<QDBusObjectPath>(); // slots are found by the names of known types
}

void ApplicationScope::enter(std::function<void()> entered)
{
    const bool isUnderWay = static_cast<bool>(m_entered);
    m_entered = std::move(entered);
    if (isUnderWay)
        return;
    if (isNeeded())
        askForUnit();
    else
        finish();
}

// What isn't below the user's part of the system has no manager that could name it.
bool ApplicationScope::isNeeded() const
{
    QFile file(m_unitsFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const auto units = QString::fromUtf8(file.readAll());
    return units.contains(u"/user.slice/") && !named.match(units).hasMatch();
}

// The process has been moved when the job has gone, not yet with the reply.
void ApplicationScope::askForUnit()
{
    m_bus.connect(service, path, interface, jobRemovedSignal, this, jobRemovedSlot);
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
    m_patience.start();
}

void ApplicationScope::jobRemoved(uint, const QDBusObjectPath&, const QString& unit, const QString&)
{
    if (unit == scopeName())
        finish();
}

// Where somebody else listens, the manager tells everybody of each job that there is.
void ApplicationScope::finish()
{
    m_patience.stop();
    m_bus.disconnect(service, path, interface, jobRemovedSignal, this, jobRemovedSlot);
    if (const auto entered = std::exchange(m_entered, {}))
        entered();
}

} // namespace jotwell

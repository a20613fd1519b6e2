#include "Platform/linux/DBusInstanceDoor.h"

#include "Platform/linux/DBusDoorObject.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QLockFile>

#include <cstdio>

#include <unistd.h>

namespace jotwell {

namespace {

// A holder that hangs must not make the second start hang as well.
constexpr int handOverTimeout = 1000;
constexpr int claimAttempts = 3;

const QString& busName()
{
    static const auto name = QStringLiteral("com.jotwell.Jotwell");
    return name;
}

QString objectPath()
{
    return QStringLiteral("/com/jotwell/Jotwell");
}

void complain(const char* message)
{
    std::fprintf(stderr, "jotwell: %s\n", message);
}

QVariantMap platformData()
{
    QVariantMap data;
    const auto take = [&data](const char* variable, const QString& key) {
        if (const QString value = qEnvironmentVariable(variable); !value.isEmpty())
            data.insert(key, value);
    };
    take("DESKTOP_STARTUP_ID", QStringLiteral("desktop-startup-id"));
    take("XDG_ACTIVATION_TOKEN", QStringLiteral("activation-token"));
    return data;
}

QString lockFilePath()
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!folder.isEmpty())
        return folder + QStringLiteral("/com.jotwell.Jotwell.lock");
    return QStringLiteral("%1/com.jotwell.Jotwell-%2.lock").arg(QDir::tempPath()).arg(::getuid());
}

// Where no session bus runs, the D-Bus library would start one that nobody ends.
void stayWithoutMissingBus()
{
    const QString usualSocket = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") && !QFile::exists(usualSocket))
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

// A connection of our own, which doesn't live longer than the door.
QDBusConnection connectToSessionBus()
{
    stayWithoutMissingBus();
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QStringLiteral("jotwell-door"));
}

} // namespace

DBusInstanceDoor::DBusInstanceDoor()
    : m_bus(connectToSessionBus()), m_object(std::make_unique<DBusDoorObject>())
{
}

DBusInstanceDoor::~DBusInstanceDoor()
{
    if (m_bus.isConnected())
        m_bus.unregisterService(busName());
    QDBusConnection::disconnectFromBus(m_bus.name());
}

InstanceDoor::Claim DBusInstanceDoor::claim()
{
    if (!m_bus.isConnected())
        return claimLockFile();
    // The holder may end between our two questions; then the name is free again.
    for (int attempt = 0; attempt < claimAttempts; ++attempt) {
        if (takeName())
            return Claim::owner;
        if (const auto outcome = handOver())
            return *outcome;
    }
    return Claim::delivered;
}

void DBusInstanceDoor::answer(std::function<void()> activate,
                              std::function<void(const QString&)> performAction)
{
    m_object->answer(std::move(activate), std::move(performAction));
}

bool DBusInstanceDoor::takeName()
{
    // The object first: whoever finds the name taken finds someone to call.
    m_bus.registerObject(objectPath(), m_object.get(), QDBusConnection::ExportScriptableSlots);
    return m_bus.registerService(busName());
}

std::optional<InstanceDoor::Claim> DBusInstanceDoor::handOver()
{
    auto call = QDBusMessage::createMethodCall(busName(), objectPath(),
                                               QStringLiteral("org.freedesktop.Application"),
                                               QStringLiteral("Activate"));
    call.setAutoStartService(false);
    call.setArguments({platformData()});
    const auto reply = m_bus.call(call, QDBus::Block, handOverTimeout);
    if (reply.type() != QDBusMessage::ErrorMessage)
        return Claim::delivered;
    if (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown") ||
        reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner"))
        return std::nullopt;
    complain("Jotwell is running, but doesn't answer.");
    return Claim::delivered;
}

InstanceDoor::Claim DBusInstanceDoor::claimLockFile()
{
    m_lockFile = std::make_unique<QLockFile>(lockFilePath());
    m_lockFile->setStaleLockTime(0);
    if (m_lockFile->tryLock())
        return Claim::owner;
    if (m_lockFile->error() != QLockFile::LockFailedError)
        return Claim::owner; // nowhere to put the lock: rather two than none
    complain("Jotwell is already running.");
    return Claim::delivered;
}

} // namespace jotwell

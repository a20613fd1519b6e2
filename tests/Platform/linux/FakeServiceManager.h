#pragma once

#include "Platform/linux/TransientUnit.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QList>

namespace jotwell {

/// The user's service manager on the session bus, until it goes.
class FakeServiceManager : public QDBusVirtualObject {
public:
    enum class Answer { taken, refused, none };

    explicit FakeServiceManager(Answer answer)
        : m_answer(answer), m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                                QStringLiteral("manager")))
    {
        registerTransientUnit();
        m_bus.registerVirtualObject(path, this);
        m_bus.registerService(QStringLiteral("org.freedesktop.systemd1"));
    }
    ~FakeServiceManager() override { QDBusConnection::disconnectFromBus(m_bus.name()); }

    QList<QDBusMessage> calls;

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override
    {
        calls.append(message);
        if (m_answer == Answer::taken)
            m_bus.send(message.createReply(QVariant::fromValue(job())));
        else if (m_answer == Answer::refused)
            m_bus.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
        return true;
    }

    /// The job of a unit has gone, which everybody who listens is told.
    void finish(const QString& unit, const QString& result = QStringLiteral("done"))
    {
        auto signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.systemd1.Manager"), QStringLiteral("JobRemoved"));
        signal.setArguments({7U, QVariant::fromValue(job()), unit, result});
        m_bus.send(signal);
    }

private:
    inline static const QString path = QStringLiteral("/org/freedesktop/systemd1");

    [[nodiscard]] static QDBusObjectPath job()
    {
        return QDBusObjectPath(path + QStringLiteral("/job/7"));
    }

    const Answer m_answer;
    QDBusConnection m_bus;
};

} // namespace jotwell

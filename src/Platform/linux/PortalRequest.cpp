#include "Platform/linux/PortalRequest.h"

#include "Platform/linux/DesktopPortal.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace jotwell {

namespace {

const QString interface = QStringLiteral("org.freedesktop.portal.Request");

} // namespace

PortalRequest::PortalRequest(const QDBusConnection& bus, QString token) : m_bus(bus)
{
    const QString sender = m_bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    m_path = QStringLiteral("%1/request/%2/%3").arg(DesktopPortal::path, sender, token);
}

// Listens first: the answer may come before the reply.
void PortalRequest::call(const QDBusMessage& question, Answered answered,
                         std::chrono::milliseconds patience)
{
    m_answered = std::move(answered);
    listenAt(m_path);
    auto* watcher = new QDBusPendingCallWatcher(
        m_bus.asyncCall(question, static_cast<int>(patience.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        takeReply(*watcher);
    });
}

// It only tells where the answer will come: an older portal names the place as it likes.
void PortalRequest::takeReply(const QDBusPendingCallWatcher& watcher)
{
    const QDBusPendingReply<QDBusObjectPath> reply(watcher);
    if (reply.isError()) {
        m_error = reply.error().message();
        if (reply.error().type() == QDBusError::NoReply)
            sendClose(); // what comes too late is to go again
        finish(Outcome::failed, {});
        return;
    }
    m_isTaken = true;
    if (const QString path = reply.value().path(); path != m_path) {
        stopListening();
        listenAt(path);
    }
}

void PortalRequest::listenAt(const QString& path)
{
    m_path = path;
    m_bus.connect(DesktopPortal::service, m_path, interface, QStringLiteral("Response"), this,
                  SLOT(responded(uint, QVariantMap)));
}

void PortalRequest::stopListening()
{
    m_bus.disconnect(DesktopPortal::service, m_path, interface, QStringLiteral("Response"), this,
                     SLOT(responded(uint, QVariantMap)));
}

void PortalRequest::abandon()
{
    if (std::exchange(m_answered, {}))
        sendClose();
}

void PortalRequest::sendClose()
{
    auto message = QDBusMessage::createMethodCall(DesktopPortal::service, m_path, interface,
                                                  QStringLiteral("Close"));
    message.setAutoStartService(false);
    m_bus.send(message);
}

void PortalRequest::responded(uint response, const QVariantMap& results)
{
    constexpr uint success = 0;
    constexpr uint refusedByUser = 1;
    finish(response == success         ? Outcome::granted
           : response == refusedByUser ? Outcome::denied
                                       : Outcome::failed,
           results);
}

void PortalRequest::finish(Outcome outcome, const QVariantMap& results)
{
    if (const Answered answered = std::exchange(m_answered, {}))
        answered(outcome, results);
}

} // namespace jotwell

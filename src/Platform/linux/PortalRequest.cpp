#include "Platform/linux/PortalRequest.h"

#include "Platform/linux/DesktopPortal.h"

#include <QDBusPendingCallWatcher>

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
void PortalRequest::call(const QDBusMessage& question, Answered answered)
{
    m_answered = std::move(answered);
    m_bus.connect(DesktopPortal::service, m_path, interface, QStringLiteral("Response"), this,
                  SLOT(responded(uint, QVariantMap)));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        // A reply only tells where the answer will come.
        if (watcher->isError())
            finish(Outcome::failed, {});
    });
}

void PortalRequest::abandon()
{
    if (!std::exchange(m_answered, {}))
        return;
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

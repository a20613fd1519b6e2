#include "Platform/linux/PortalLoginItem.h"

#include "Platform/FileCalls.h"
#include "Support/Logging.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace jotwell {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString requests = QStringLiteral("/org/freedesktop/portal/desktop/request/");
const QString background = QStringLiteral("org.freedesktop.portal.Background");
const QString request = QStringLiteral("org.freedesktop.portal.Request");

QVariantMap options(bool wish, const QString& token)
{
    return {
        {QStringLiteral("handle_token"), token},
        {QStringLiteral("reason"), QStringLiteral("Jotwell is to start when you log in.")},
        {QStringLiteral("autostart"), wish},
        {QStringLiteral("commandline"), QStringList{QStringLiteral("jotwell")}},
        {QStringLiteral("dbus-activatable"), false},
    };
}

} // namespace

PortalLoginItem::PortalLoginItem(QString answerFile, FileCalls& calls)
    : m_bus(QDBusConnection::sessionBus()), m_answerFile(std::move(answerFile)), m_calls(calls),
      m_file(calls)
{
    auto* watcher =
        new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForUnregistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        if (m_wish)
            fail(QStringLiteral("The portal has gone."));
    });
}

LoginItem::Status PortalLoginItem::status() const
{
    if (m_wish)
        return *m_wish ? Status::requiresApproval : Status::notRegistered;
    return QFile::exists(m_answerFile) ? Status::enabled : Status::notRegistered;
}

std::optional<QString> PortalLoginItem::registerItem()
{
    return ask(true);
}

std::optional<QString> PortalLoginItem::unregisterItem()
{
    return ask(false);
}

std::optional<QString> PortalLoginItem::ask(bool wish)
{
    if (!m_bus.isConnected())
        return QStringLiteral("There is no session bus to ask the desktop by.");
    // The answer may come before the call's own: where it will is known by the token.
    const QString token = QStringLiteral("jotwell%1").arg(++m_questions);
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    listenAt(requests + sender + u'/' + token);
    m_wish = wish;
    auto question = QDBusMessage::createMethodCall(service, path, background,
                                                   QStringLiteral("RequestBackground"));
    question.setArguments({QString(), options(wish, token)});
    auto* call = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, number = m_questions] {
        call->deleteLater();
        if (number == m_questions) // else a later wish has taken its place
            takeCall(*call);
    });
    return std::nullopt;
}

void PortalLoginItem::takeCall(const QDBusPendingCallWatcher& call)
{
    const QDBusPendingReply<QDBusObjectPath> reply(call);
    if (reply.isError())
        fail(reply.error().message());
    else if (m_wish && reply.value().path() != m_request)
        listenAt(reply.value().path()); // an older portal names it as it likes
}

void PortalLoginItem::listenAt(const QString& where)
{
    stopListening();
    m_request = where;
    m_bus.connect(service, m_request, request, QStringLiteral("Response"), this,
                  SLOT(responded(uint, QVariantMap)));
}

void PortalLoginItem::stopListening()
{
    if (!m_request.isEmpty())
        m_bus.disconnect(service, m_request, request, QStringLiteral("Response"), this,
                         SLOT(responded(uint, QVariantMap)));
    m_request.clear();
}

void PortalLoginItem::responded(uint response, const QVariantMap& results)
{
    stopListening();
    if (response == 0)
        settle(results.value(QStringLiteral("autostart")).toBool());
    else
        fail(QStringLiteral("The desktop didn't allow it."));
}

void PortalLoginItem::settle(bool isStarted)
{
    m_wish.reset();
    const QByteArray file = QFile::encodeName(m_answerFile);
    if (!isStarted) {
        m_calls.unlink(file.constData());
        return;
    }
    QDir().mkpath(QFileInfo(m_answerFile).path());
    if (const auto written = m_file.write(m_answerFile, "started by the portal\n",
                                          AtomicFile::Permissions::ownerOnly);
        !written)
        logError(QStringLiteral("LoginItem"),
                 m_answerFile + QStringLiteral(": ") + written.error().description());
}

// As far as is known the portal has left everything as it was; an answer may still come.
void PortalLoginItem::fail(const QString& words)
{
    m_wish.reset();
    logError(QStringLiteral("LoginItem"),
             QStringLiteral("The start at login stays as it was: ") + words);
}

} // namespace jotwell

#include "Platform/linux/PortalLoginItem.h"

#include "Platform/FileCalls.h"
#include "Platform/linux/DesktopPortal.h"
#include "Support/Logging.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace jotwell {

namespace {

const QString background = QStringLiteral("org.freedesktop.portal.Background");

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
    auto* watcher = new QDBusServiceWatcher(DesktopPortal::service, m_bus,
                                            QDBusServiceWatcher::WatchForUnregistration, this);
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
    const QString token = QStringLiteral("jotwell%1").arg(++m_questions);
    auto question = QDBusMessage::createMethodCall(DesktopPortal::service, DesktopPortal::path,
                                                   background, QStringLiteral("RequestBackground"));
    question.setArguments({QString(), options(wish, token)});
    m_wish = wish;
    m_request.reset(new PortalRequest(m_bus, token)); // a later wish takes an earlier one's place
    m_request->call(question, [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
        takeAnswer(outcome, results);
    });
    return std::nullopt;
}

void PortalLoginItem::takeAnswer(PortalRequest::Outcome outcome, const QVariantMap& results)
{
    if (outcome == PortalRequest::Outcome::granted)
        settle(results.value(QStringLiteral("autostart")).toBool());
    else if (m_request->error().isEmpty())
        fail(QStringLiteral("The desktop didn't allow it."));
    else
        fail(m_request->error());
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

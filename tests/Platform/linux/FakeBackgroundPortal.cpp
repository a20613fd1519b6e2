#include "Platform/linux/FakeBackgroundPortal.h"

#include <QTest>
#include <QUuid>

namespace jotwell {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

} // namespace

FakeBackgroundPortal::FakeBackgroundPortal(Kind kind)
    : m_kind(kind), m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                        QUuid::createUuid().toString()))
{
    m_bus.registerObject(path, this, QDBusConnection::ExportScriptableContents);
    m_bus.registerService(service);
}

FakeBackgroundPortal::~FakeBackgroundPortal()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

bool FakeBackgroundPortal::waitForQuestions(qsizetype count) const
{
    return QTest::qWaitFor([&] { return m_questions.size() >= count; }, 3000);
}

void FakeBackgroundPortal::respond(qsizetype question, uint response, bool autostart)
{
    auto signal = QDBusMessage::createSignal(m_questions.at(question).request,
                                             QStringLiteral("org.freedesktop.portal.Request"),
                                             QStringLiteral("Response"));
    signal.setArguments({response, QVariantMap{{QStringLiteral("background"), true},
                                               {QStringLiteral("autostart"), autostart}}});
    m_bus.send(signal);
}

QDBusObjectPath FakeBackgroundPortal::RequestBackground(const QString& window,
                                                        const QVariantMap& options)
{
    const QString sender = message().service().mid(1).replace(u'.', u'_');
    const QString token = m_kind == Kind::naming
                              ? QStringLiteral("own%1").arg(m_questions.size())
                              : options.value(QStringLiteral("handle_token")).toString();
    m_questions.append(
        {window, options, path + QStringLiteral("/request/") + sender + u'/' + token});
    if (m_kind == Kind::hasty)
        respond(m_questions.size() - 1, 0, options.value(QStringLiteral("autostart")).toBool());
    else if (m_kind == Kind::refusing)
        sendErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
    else if (m_kind == Kind::silent)
        setDelayedReply(true);
    return QDBusObjectPath(m_questions.last().request);
}

} // namespace jotwell

#include "Platform/linux/FakeFolderPortal.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTest>
#include <QUuid>

namespace jotwell {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString request = QStringLiteral("org.freedesktop.portal.Request");

} // namespace

FakeFolderPortal::FakeFolderPortal(Kind kind)
    : m_kind(kind), m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                        QUuid::createUuid().toString()))
{
    m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
    m_bus.registerService(service);
}

FakeFolderPortal::~FakeFolderPortal()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

bool FakeFolderPortal::waitForQuestions(qsizetype count) const
{
    return QTest::qWaitFor([&] { return m_questions.size() >= count; }, 3000);
}

bool FakeFolderPortal::waitForClosed(const QString& request) const
{
    return QTest::qWaitFor([&] { return m_closed.contains(request); }, 3000);
}

void FakeFolderPortal::respond(qsizetype question, uint response, const QVariantMap& results)
{
    auto signal = QDBusMessage::createSignal(m_questions.at(question).request, request,
                                             QStringLiteral("Response"));
    signal.setArguments({response, results});
    m_bus.send(signal);
}

QString FakeFolderPortal::introspect(const QString&) const
{
    return {};
}

bool FakeFolderPortal::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    if (message.interface() == request && message.member() == u"Close") {
        m_closed.append(message.path());
        return true;
    }
    if (message.member() == u"Get")
        return tellVersion(message);
    return message.member() == u"OpenFile" && take(message);
}

bool FakeFolderPortal::tellVersion(const QDBusMessage& message)
{
    const QVariantList wanted{QStringLiteral("org.freedesktop.portal.FileChooser"),
                              QStringLiteral("version")};
    if (m_kind == Kind::without || message.arguments() != wanted)
        return false;
    const uint version = m_kind == Kind::old ? 2 : 3;
    if (m_kind != Kind::speechless)
        m_bus.send(message.createReply(QVariant::fromValue(QDBusVariant(version))));
    return true;
}

bool FakeFolderPortal::take(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    const QVariantMap options = qdbus_cast<QVariantMap>(arguments.value(2));
    const QString sender = message.service().mid(1).replace(u'.', u'_');
    const QString token = m_kind == Kind::naming
                              ? QStringLiteral("own%1").arg(m_questions.size())
                              : options.value(QStringLiteral("handle_token")).toString();
    m_questions.append({arguments.value(0).toString(), arguments.value(1).toString(), options,
                        path + QStringLiteral("/request/") + sender + u'/' + token});
    const QDBusObjectPath taken(m_questions.last().request);
    if (m_kind == Kind::refusing)
        m_bus.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
    else if (m_kind != Kind::silent)
        m_bus.send(message.createReply(QVariant::fromValue(taken)));
    return true;
}

} // namespace jotwell

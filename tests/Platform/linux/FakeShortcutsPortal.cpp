#include "Platform/linux/FakeShortcutsPortal.h"

#include "Platform/linux/PortalShortcut.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusObjectPath>
#include <QUuid>

namespace jotwell {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString beginning = QStringLiteral("org.freedesktop.");

QString tokenIn(const QVariant& options, const QString& name)
{
    return qdbus_cast<QVariantMap>(options).value(name).toString();
}

QString pathOf(const QString& kind, const QDBusMessage& message, const QString& token)
{
    const QString sender = message.service().mid(1).replace(u'.', u'_');
    return QStringLiteral("%1/%2/%3/%4").arg(path, kind, sender, token);
}

} // namespace

FakeShortcutsPortal::FakeShortcutsPortal(Answer answer, QList<Trait> traits)
    : m_answer(answer), m_traits(std::move(traits)),
      m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                          QUuid::createUuid().toString()))
{
    registerPortalShortcut();
    m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
    m_bus.registerService(service);
}

FakeShortcutsPortal::~FakeShortcutsPortal()
{
    QDBusConnection::disconnectFromBus(m_bus.name());
}

QString FakeShortcutsPortal::introspect(const QString&) const
{
    return {};
}

bool FakeShortcutsPortal::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    calls.append(message.interface().mid(beginning.size()) + u'.' + message.member());
    messages.append(message);
    if (message.member() == u"Close")
        closed.append(message.path());
    else if (has(Trait::silentFromTheStart))
        return true;
    else if (has(Trait::refusing))
        m_bus.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no")));
    else if (message.member() == u"Register" && has(Trait::knowsPrograms))
        m_bus.send(message.createReply());
    else if (message.member() == u"CreateSession")
        createSession(message);
    else if (message.member() == u"BindShortcuts")
        bindShortcuts(message);
    else
        m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("what?")));
    return true;
}

void FakeShortcutsPortal::createSession(const QDBusMessage& message)
{
    const QVariant options = message.arguments().value(0);
    m_request = pathOf(QStringLiteral("request"), message,
                       tokenIn(options, QStringLiteral("handle_token")));
    sessionToken = tokenIn(options, QStringLiteral("session_handle_token"));
    session = pathOf(QStringLiteral("session"), message, sessionToken);
    QVariantMap results;
    if (has(Trait::bindsWithSession))
        takeWithSession(qdbus_cast<QVariantMap>(options), results);
    if (!has(Trait::withoutSession))
        results.insert(QStringLiteral("session_handle"), session);
    if (has(Trait::answersEarly))
        respond(0, results);
    m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
    if (!has(Trait::answersEarly))
        respond(0, results);
}

// The answer names the shortcuts of the session, and none if it has none.
void FakeShortcutsPortal::takeWithSession(const QVariantMap& options, QVariantMap& results)
{
    const QString key = QStringLiteral("shortcuts");
    take(options.value(key));
    QList<PortalShortcut> bound;
    if (!shortcutId.isEmpty())
        bound.append({has(Trait::bindsAnother) ? QStringLiteral("another") : shortcutId, shortcut});
    results.insert(key, QVariant::fromValue(bound));
}

void FakeShortcutsPortal::take(const QVariant& shortcuts)
{
    const auto wanted = qdbus_cast<QList<PortalShortcut>>(shortcuts).value(0);
    shortcutId = wanted.id;
    shortcut = wanted.properties;
}

void FakeShortcutsPortal::bindShortcuts(const QDBusMessage& message)
{
    if (!has(Trait::bindsWithSession))
        take(message.arguments().value(1));
    m_request = pathOf(QStringLiteral("request"), message,
                       tokenIn(message.arguments().value(3), QStringLiteral("handle_token")));
    if (has(Trait::answersEarly))
        answer(m_answer);
    m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
    if (!has(Trait::answersEarly))
        answer(m_answer);
}

void FakeShortcutsPortal::answer(Answer answer)
{
    const QString key = QStringLiteral("shortcuts");
    const PortalShortcut bound{shortcutId, shortcut};
    const PortalShortcut other{QStringLiteral("another"), {}};
    switch (answer) {
    case Answer::granted:
        respond(0, {{key, QVariant::fromValue(QList<PortalShortcut>{other, bound})}});
        break;
    case Answer::grantedWithoutList:
        respond(0, {});
        break;
    case Answer::grantedNothing:
        respond(0, {{key, QVariant::fromValue(QList<PortalShortcut>{other})}});
        break;
    case Answer::grantedNonsense:
        respond(0, {{key, QStringLiteral("all of them")}});
        break;
    case Answer::denied:
        respond(1, {});
        break;
    case Answer::failed:
        respond(2, {});
        break;
    case Answer::none:
        break;
    }
}

void FakeShortcutsPortal::respond(uint response, const QVariantMap& results)
{
    auto signal = QDBusMessage::createSignal(
        m_request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
    signal.setArguments({response, results});
    m_bus.send(signal);
}

void FakeShortcutsPortal::activate(const QString& session, const QString& id,
                                   const QVariantMap& options)
{
    if (session.isEmpty())
        return; // there was none
    auto signal =
        QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.portal.GlobalShortcuts"),
                                   QStringLiteral("Activated"));
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(session)), id,
                         QVariant::fromValue(qulonglong(1)), options});
    m_bus.send(signal);
}

void FakeShortcutsPortal::closeSession(const QString& session)
{
    auto signal = QDBusMessage::createSignal(
        session, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed"));
    signal.setArguments({QVariantMap()});
    m_bus.send(signal);
}

} // namespace jotwell

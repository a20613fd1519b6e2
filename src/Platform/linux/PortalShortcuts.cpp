#include "Platform/linux/PortalShortcuts.h"

#include "Platform/linux/ActivationToken.h"
#include "Platform/linux/DesktopPortal.h"
#include "Platform/linux/HotkeyText.h"
#include "Platform/linux/PortalPermission.h"
#include "Platform/linux/PortalShortcut.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QPointer>

#include <utility>

namespace jotwell {

namespace {

const QString interface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString sessionInterface = QStringLiteral("org.freedesktop.portal.Session");
const QString registryInterface = QStringLiteral("org.freedesktop.host.portal.Registry");
const QString applicationId = QStringLiteral("com.jotwell.Jotwell");
const QString shortcutsKey = QStringLiteral("shortcuts");

// Plasma 5 keeps the user's keys below this name, and shows it: it has to be the same in each run.
const QString sessionToken = QStringLiteral("Jotwell");

// A portal takes a program for the one that the first word of its connection came from.
QDBusConnection newConnection()
{
    static int connections = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QStringLiteral("jotwell-shortcuts-%1").arg(++connections));
}

} // namespace

class PortalShortcuts::Listener : public HotkeyChannel {
public:
    explicit Listener(PortalShortcuts* shortcuts) : m_shortcuts(shortcuts) {}
    ~Listener() override
    {
        if (m_shortcuts) {
            m_shortcuts->m_handler = nullptr;
            m_shortcuts->end();
        }
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

private:
    const QPointer<PortalShortcuts> m_shortcuts;
};

PortalShortcuts::PortalShortcuts(PortalPermission& permission,
                                 const ApplicationScope::Conditions& scope)
    : m_permission(permission), m_bus(newConnection()), m_portal(QString()), m_scope(m_bus, scope)
{
    registerPortalShortcut();
    qRegisterMetaType<QDBusObjectPath>(); // slots are found by the names of known types
    if (!m_bus.isConnected())
        return;
    auto* watcher = new QDBusServiceWatcher(DesktopPortal::service, m_bus,
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString& oldOwner, const QString& newOwner) {
                portalChanged(oldOwner, newOwner);
            });
}

PortalShortcuts::~PortalShortcuts()
{
    end();
    QDBusConnection::disconnectFromBus(m_bus.name());
}

void PortalShortcuts::ask(const Hotkey& hotkey, std::function<void()> cannotAsk)
{
    if (m_state == State::bound && m_hotkey == hotkey)
        return;
    // A session that comes late would take the shortcut away again from a second one.
    const bool isOnItsWay = m_state == State::asking && m_session.isEmpty();
    if (isOnItsWay && m_hotkey == hotkey)
        m_wish = Wish::ofUser;
    else
        begin(hotkey, Wish::ofUser);
    m_cannotAsk = std::move(cannotAsk);
    if (m_state == State::idle)
        tellThatItCannotAsk();
}

std::unique_ptr<HotkeyChannel> PortalShortcuts::listen(const Hotkey& hotkey,
                                                       HotkeyChannels::MonitorHandler handler)
{
    if (!m_bus.isConnected())
        return nullptr;
    m_handler = std::move(handler);
    const bool isUnderWay = m_state == State::asking || m_state == State::bound;
    if (!isUnderWay || m_hotkey != hotkey)
        begin(hotkey, Wish::ofProgram);
    return std::make_unique<Listener>(this);
}

void PortalShortcuts::begin(const Hotkey& hotkey, Wish wish)
{
    m_cannotAsk = {};
    end();
    if (!m_bus.isConnected() || triggerOf(hotkey).isEmpty())
        return;
    m_hotkey = hotkey;
    m_wish = wish;
    m_state = State::asking;
    m_portal = newConnection();
    m_portal.connect(DesktopPortal::service, DesktopPortal::path, interface,
                     QStringLiteral("Activated"), this,
                     SLOT(activated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    enterScope();
}

// With the connection goes all that a portal has for it, also what is only on its way; the next one
// makes another session of the same name, which nobody can take for this one.
void PortalShortcuts::end()
{
    m_introduction.reset();
    m_request.reset();
    m_state = State::idle;
    if (const QString session = forgetSession(); !session.isEmpty()) {
        auto message = QDBusMessage::createMethodCall(DesktopPortal::service, session,
                                                      sessionInterface, QStringLiteral("Close"));
        message.setAutoStartService(false);
        m_portal.send(message);
    }
    QDBusConnection::disconnectFromBus(m_portal.name());
    m_portal = QDBusConnection(QString());
}

QString PortalShortcuts::forgetSession()
{
    if (!m_session.isEmpty())
        m_portal.disconnect(DesktopPortal::service, m_session, sessionInterface,
                            QStringLiteral("Closed"), this, SLOT(sessionClosed()));
    return std::exchange(m_session, {});
}

// Before the first word to the portal, which it remembers the program by.
void PortalShortcuts::enterScope()
{
    m_scope.enter([this] {
        if (m_state == State::asking)
            introduceProgram();
    });
}

// Portals that can't be told, or know it already, refuse: that is all the same.
void PortalShortcuts::introduceProgram()
{
    m_introduction = std::make_unique<QObject>();
    const auto call = m_portal.asyncCall(DesktopPortal::call(
        registryInterface, QStringLiteral("Register"), {applicationId, QVariantMap()}));
    auto* watcher = new QDBusPendingCallWatcher(call, m_introduction.get());
    connect(watcher, &QDBusPendingCallWatcher::finished, m_introduction.get(),
            [this] { createSession(); });
}

// Plasma 5 wants the shortcuts here already; others don't look for them.
void PortalShortcuts::createSession()
{
    const QString token = nextToken();
    const QVariantMap options{{QStringLiteral("handle_token"), token},
                              {QStringLiteral("session_handle_token"), sessionToken},
                              {shortcutsKey, shortcuts()}};
    m_request.reset(new PortalRequest(m_portal, token));
    m_request->call(DesktopPortal::call(interface, QStringLiteral("CreateSession"), {options}),
                    [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
                        takeSession(outcome, results);
                    });
}

// Shortcuts that come with the session are bound. Plasma 5 answers the wish to bind it by opening
// its settings, which only the user may ask for.
void PortalShortcuts::takeSession(PortalRequest::Outcome outcome, const QVariantMap& results)
{
    m_session = results.value(QStringLiteral("session_handle")).toString();
    if (outcome != PortalRequest::Outcome::granted || m_session.isEmpty()) {
        lose();
        tellThatItCannotAsk();
        return;
    }
    m_portal.connect(DesktopPortal::service, m_session, sessionInterface, QStringLiteral("Closed"),
                     this, SLOT(sessionClosed()));
    if (m_wish == Wish::ofProgram && results.contains(shortcutsKey))
        takeBinding(outcome, results);
    else
        bind();
}

void PortalShortcuts::tellThatItCannotAsk()
{
    if (const auto cannotAsk = std::exchange(m_cannotAsk, {}))
        cannotAsk();
}

void PortalShortcuts::bind()
{
    const QString token = nextToken();
    const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(m_session)), shortcuts(),
                                 QString(), QVariantMap{{QStringLiteral("handle_token"), token}}};
    m_request.reset(new PortalRequest(m_portal, token));
    m_request->call(DesktopPortal::call(interface, QStringLiteral("BindShortcuts"), arguments),
                    [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
                        takeBinding(outcome, results);
                    });
}

void PortalShortcuts::takeBinding(PortalRequest::Outcome outcome, const QVariantMap& results)
{
    if (outcome == PortalRequest::Outcome::failed) {
        lose();
        tellThatItCannotAsk();
        return;
    }
    const bool isBound = outcome == PortalRequest::Outcome::granted &&
                         isNamed(shortcutId(), results.value(shortcutsKey));
    if (isBound) {
        m_state = State::bound;
        m_permission.give();
    } else {
        end();
        m_state = State::denied;
        m_permission.withdraw();
    }
}

// The portal is asked again when it comes back, and by the user's next wish.
void PortalShortcuts::lose()
{
    end();
    m_state = State::lost;
}

void PortalShortcuts::portalChanged(const QString& oldOwner, const QString& newOwner)
{
    const bool isWanted = m_state != State::idle && m_state != State::denied;
    if (!oldOwner.isEmpty() && isWanted) {
        forgetSession(); // it went with the portal
        lose();
    }
    if (!newOwner.isEmpty() && m_state == State::lost)
        begin(m_hotkey, Wish::ofProgram);
}

void PortalShortcuts::activated(const QDBusObjectPath& session, const QString& id, qulonglong,
                                const QVariantMap& options)
{
    const bool isOurs = session.path() == m_session && id == shortcutId();
    if (!isOurs || m_state != State::bound || !m_handler)
        return;
    useActivationToken(options.value(QStringLiteral("activation_token")).toString());
    m_handler({KeyEvent::keyDown, static_cast<int>(m_hotkey.keyCode), m_hotkey.modifiers});
}

void PortalShortcuts::sessionClosed()
{
    forgetSession();
    lose();
}

QString PortalShortcuts::nextToken()
{
    return QStringLiteral("jotwell%1").arg(++m_tokens);
}

// A desktop keeps what the user has decided about a shortcut, and another key is another one.
QString PortalShortcuts::shortcutId() const
{
    return QStringLiteral("toggle-%1-%2").arg(m_hotkey.keyCode).arg(m_hotkey.modifiers);
}

QVariant PortalShortcuts::shortcuts() const
{
    const PortalShortcut shortcut{
        shortcutId(),
        {{QStringLiteral("description"), QStringLiteral("Show or hide Jotwell")},
         {QStringLiteral("preferred_trigger"), triggerOf(m_hotkey)}}};
    return QVariant::fromValue(QList<PortalShortcut>{shortcut});
}

} // namespace jotwell

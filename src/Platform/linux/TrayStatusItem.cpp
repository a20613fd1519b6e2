#include "Platform/linux/TrayStatusItem.h"

#include "Platform/linux/DesktopName.h"
#include "Platform/linux/XcbConnection.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QMenu>
#include <QSystemTrayIcon>

#include <utility>

namespace jotwell {

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

// Their bars may be dark whatever the palette says, and have their own colour for what they know by
// name. Others would draw that as it is.
QIcon iconFor(const QIcon& icon)
{
    const bool isColoured = isDesktop(u"GNOME") || isDesktop(u"KDE");
    return isColoured ? QIcon::fromTheme(QStringLiteral("com.jotwell.Jotwell-symbolic"), icon)
                      : icon;
}

// An ampersand would be taken for the mark of a letter.
QString shown(QString title)
{
    return title.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QKeySequence shortcut(const MenuEntry& entry)
{
    if (entry.keyEquivalent.isEmpty())
        return {};
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, entry.keyEquivalentModifierMask & ModifierBit::shift);
    modifiers.setFlag(Qt::MetaModifier, entry.keyEquivalentModifierMask & ModifierBit::control);
    modifiers.setFlag(Qt::AltModifier, entry.keyEquivalentModifierMask & ModifierBit::option);
    modifiers.setFlag(Qt::ControlModifier, entry.keyEquivalentModifierMask & ModifierBit::command);
    return QKeyCombination(modifiers, Qt::Key(entry.keyEquivalent.front().toUpper().unicode()));
}

} // namespace

TrayStatusItem::TrayStatusItem(QIcon icon, QString description)
    : m_icon(std::move(icon)), m_description(std::move(description)),
      m_bus(QDBusConnection::sessionBus()), m_menu(std::make_unique<QMenu>())
{
    auto* service = new QDBusServiceWatcher(watcherService, m_bus,
                                            QDBusServiceWatcher::WatchForRegistration, this);
    connect(service, &QDBusServiceWatcher::serviceRegistered, this,
            &TrayStatusItem::askForNotifierHost);
    m_bus.connect(watcherService, watcherPath, watcherService,
                  QStringLiteral("StatusNotifierHostRegistered"), this,
                  SLOT(notifierHostRegistered()));
    if (xcbConnection()) {
        m_managerAtom = xcbAtom("MANAGER");
        m_trayAtom = xcbAtom("_NET_SYSTEM_TRAY_S0");
        qApp->installNativeEventFilter(this);
    }
    askForNotifierHost();
}

TrayStatusItem::~TrayStatusItem()
{
    if (m_trayAtom != 0)
        qApp->removeNativeEventFilter(this);
}

void TrayStatusItem::setMenu(std::vector<MenuEntry> entries)
{
    auto menu = std::make_unique<QMenu>();
    for (MenuEntry& entry : entries) {
        if (entry.title.isEmpty()) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(shown(entry.title));
        action->setShortcut(shortcut(entry));
        action->setEnabled(entry.isEnabled);
        connect(action, &QAction::triggered, this, std::move(entry.action));
    }
    if (m_trayIcon)
        m_trayIcon->setContextMenu(menu.get());
    // The entry that was chosen just now may be the reason for the new menu.
    std::exchange(m_menu, std::move(menu)).release()->deleteLater();
}

void TrayStatusItem::setAction(std::function<void()> action)
{
    m_action = std::move(action);
}

void TrayStatusItem::askForNotifierHost()
{
    if (!m_bus.isConnected()) { // a question would never be answered
        QMetaObject::invokeMethod(
            this, [this] { makeIconIfThereIsATray(false); }, Qt::QueuedConnection);
        return;
    }
    auto question = QDBusMessage::createMethodCall(
        watcherService, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question.setAutoStartService(false);
    question.setArguments({watcherService, QStringLiteral("IsStatusNotifierHostRegistered")});
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply(*watcher);
        makeIconIfThereIsATray(reply.isValid() && reply.value().variant().toBool());
    });
}

// Status notifiers go first: they can do more, and Qt prefers them as well.
void TrayStatusItem::makeIconIfThereIsATray(bool hasNotifierHost)
{
    if (hasNotifierHost || (m_trayAtom != 0 && xcbSelectionHasOwner("_NET_SYSTEM_TRAY_S0")))
        makeIcon();
}

void TrayStatusItem::notifierHostRegistered()
{
    makeIcon();
}

void TrayStatusItem::makeIcon()
{
    if (m_trayIcon)
        return;
    m_trayIcon = std::make_unique<QSystemTrayIcon>(iconFor(m_icon));
    m_trayIcon->setToolTip(m_description);
    m_trayIcon->setContextMenu(m_menu.get());
    connect(m_trayIcon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger && m_action)
                    m_action();
            });
    m_trayIcon->show();
}

// A tray of X11 announces itself to everyone when it starts.
bool TrayStatusItem::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (m_trayIcon || eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE)
        return false;
    const auto* announcement = reinterpret_cast<const xcb_client_message_event_t*>(event);
    if (announcement->type == m_managerAtom && announcement->data.data32[1] == m_trayAtom)
        QMetaObject::invokeMethod(this, &TrayStatusItem::makeIcon, Qt::QueuedConnection);
    return false;
}

} // namespace jotwell

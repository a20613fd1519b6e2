#include "Platform/linux/PortalAppearance.h"

#include "Platform/linux/DesktopPortal.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include <utility>

namespace jotwell {

namespace {

using Settings = QMap<QString, QVariantMap>;

const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString accessibilityGroup = QStringLiteral("org.gnome.desktop.a11y.interface");

// Some portals wrap a value more than once.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

// Of another type than it should be, a value says nothing.
uint numberIn(const QVariant& value)
{
    return value.typeId() == QMetaType::UInt ? value.toUInt() : 0;
}

bool isTrue(const QVariant& value)
{
    return value.typeId() == QMetaType::Bool && value.toBool();
}

} // namespace

PortalAppearance::PortalAppearance() : m_bus(QDBusConnection::sessionBus())
{
    qDBusRegisterMetaType<Settings>();
    qRegisterMetaType<QDBusVariant>(); // slots are found by the names of known types
    m_isDark = wantsDark();
    qApp->installEventFilter(this);
    if (!m_bus.isConnected())
        return;
    auto* watcher = new QDBusServiceWatcher(DesktopPortal::service, m_bus,
                                            QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalAppearance::ask);
    m_bus.connect(DesktopPortal::service, DesktopPortal::path, interface,
                  QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask();
}

void PortalAppearance::setChanged(std::function<void()> changed)
{
    m_changed = std::move(changed);
}

bool PortalAppearance::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qApp)
        update();
    return false;
}

void PortalAppearance::ask()
{
    const QStringList groups{appearanceGroup, accessibilityGroup};
    const QDBusMessage question =
        DesktopPortal::call(interface, QStringLiteral("ReadAll"), {groups});
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<Settings> reply(*watcher);
        if (reply.isValid())
            takeOver(reply.value());
    });
}

// What the portal no longer names is no longer set.
void PortalAppearance::takeOver(const Settings& settings)
{
    const auto take = [&](const QString& group, const QString& key) {
        takeOver(group, key, unwrapped(settings.value(group).value(key)));
    };
    take(appearanceGroup, QStringLiteral("color-scheme"));
    take(appearanceGroup, QStringLiteral("contrast"));
    take(accessibilityGroup, QStringLiteral("high-contrast"));
    update();
}

void PortalAppearance::takeOver(const QString& group, const QString& key, const QVariant& value)
{
    if (group == appearanceGroup && key == u"color-scheme") {
        const uint scheme = numberIn(value);
        m_colorScheme = scheme == 1   ? ColorScheme::dark
                        : scheme == 2 ? ColorScheme::light
                                      : ColorScheme::noPreference;
    } else if (group == appearanceGroup && key == u"contrast") {
        m_wantsContrast = numberIn(value) == 1;
    } else if (group == accessibilityGroup && key == u"high-contrast") {
        m_wantsAccessibleContrast = isTrue(value);
    }
}

void PortalAppearance::settingChanged(const QString& group, const QString& key,
                                      const QDBusVariant& value)
{
    takeOver(group, key, unwrapped(value.variant()));
    update();
}

bool PortalAppearance::wantsDark() const
{
    if (m_colorScheme != ColorScheme::noPreference)
        return m_colorScheme == ColorScheme::dark;
    constexpr int middle = 128;
    return QGuiApplication::palette().window().color().lightness() < middle;
}

void PortalAppearance::update()
{
    const bool isDark = wantsDark();
    const bool hasHighContrast = m_wantsContrast || m_wantsAccessibleContrast;
    if (isDark == m_isDark && hasHighContrast == m_hasHighContrast)
        return;
    m_isDark = isDark;
    m_hasHighContrast = hasHighContrast;
    if (m_changed)
        m_changed();
}

} // namespace jotwell

#include "Views/Settings/OtherSettingsView.h"

#include "Services/LaunchAtLoginManager.h"

#include <QGuiApplication>

namespace jotwell {

OtherSettingsView::OtherSettingsView(LaunchAtLoginManager& launchAtLoginManager, QObject* parent)
    : SettingsScreen(parent), m_launchAtLoginManager(launchAtLoginManager)
{
    connect(&m_launchAtLoginManager, &LaunchAtLoginManager::isEnabledChanged, this,
            &OtherSettingsView::launchAtLoginChanged);
}

bool OtherSettingsView::launchAtLogin() const
{
    return m_launchAtLoginManager.isEnabled();
}

void OtherSettingsView::setLaunchAtLogin(bool launchAtLogin)
{
    m_launchAtLoginManager.setIsEnabled(launchAtLogin);
}

void OtherSettingsView::appear()
{
    m_launchAtLoginManager.checkCurrentStatus();
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            &OtherSettingsView::checkWhenActive, Qt::UniqueConnection);
}

void OtherSettingsView::disappear()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void OtherSettingsView::checkWhenActive(Qt::ApplicationState state)
{
    if (state == Qt::ApplicationActive)
        m_launchAtLoginManager.checkCurrentStatus();
}

} // namespace jotwell

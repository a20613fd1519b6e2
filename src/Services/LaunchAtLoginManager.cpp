#include "Services/LaunchAtLoginManager.h"

#include "Platform/DefaultsStore.h"
#include "Platform/LoginItem.h"
#include "Platform/Scheduler.h"
#include "Support/Logging.h"

namespace jotwell {

using namespace std::chrono_literals;

LaunchAtLoginManager::LaunchAtLoginManager(LoginItem& loginItem, DefaultsStore& defaults,
                                           Scheduler& scheduler)
    : m_loginItem(loginItem), m_defaults(defaults), m_scheduler(scheduler)
{
    checkCurrentStatus();
}

void LaunchAtLoginManager::setIsEnabled(bool isEnabled)
{
    if (isEnabled == m_isEnabled)
        return;
    m_isEnabled = isEnabled;
    // Whoever hears of the change may write another: by then this wish has to be with the desktop.
    updateLaunchAtLogin(isEnabled);
    emit isEnabledChanged();
}

void LaunchAtLoginManager::checkCurrentStatus()
{
    setIsEnabled(m_loginItem.status() == LoginItem::Status::enabled);
}

void LaunchAtLoginManager::syncWithSystemSettings()
{
    checkCurrentStatus();
}

void LaunchAtLoginManager::updateLaunchAtLogin(bool wish)
{
    // What comes from the desktop itself ends here.
    if (wish == (m_loginItem.status() == LoginItem::Status::enabled))
        return;
    const std::optional<QString> failure =
        wish ? m_loginItem.registerItem() : m_loginItem.unregisterItem();
    if (failure)
        undo(wish, *failure);
    else
        recordSuccess(wish);
}

void LaunchAtLoginManager::recordSuccess(bool wish)
{
    m_defaults.setBoolean(QStringLiteral("LaunchAtLogin"), wish);
    // A registration that waits for the user's approval isn't one yet.
    m_scheduler.after(500ms, this, [this] { checkCurrentStatus(); });
}

void LaunchAtLoginManager::undo(bool wish, const QString& reason)
{
    printLine(QStringLiteral("Failed to update launch at login: ") + reason);
    m_scheduler.after(0ms, this, [this, wish] { setIsEnabled(!wish); });
}

} // namespace jotwell

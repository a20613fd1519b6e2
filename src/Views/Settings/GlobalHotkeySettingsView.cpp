#include "Views/Settings/GlobalHotkeySettingsView.h"

#include "Platform/Scheduler.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/SettingsService.h"

#include <utility>

namespace jotwell {

using namespace std::chrono_literals;

GlobalHotkeySettingsView::GlobalHotkeySettingsView(const RecorderServices& services,
                                                   QObject* parent)
    : SettingsScreen(parent), m_services(services),
      m_recorder({[this] { return m_custom; }, [this](const Hotkey& hotkey) { m_custom = hotkey; }},
                 services),
      m_keyView(services.windowSystem)
{
}

void GlobalHotkeySettingsView::appear()
{
    checkAccessibilityPermission();
    loadCustomHotkey();
    m_timer = std::make_unique<QObject>();
    checkAgainLater();
}

void GlobalHotkeySettingsView::disappear()
{
    m_timer.reset();
    if (m_recorder.isRecording())
        m_recorder.cancelRecording();
}

void GlobalHotkeySettingsView::loadCustomHotkey()
{
    m_custom = {m_services.settings.globalHotkeyCode(),
                m_services.settings.globalHotkeyModifiers()};
    emit m_recorder.changed();
}

void GlobalHotkeySettingsView::checkAccessibilityPermission()
{
    const bool has = m_services.hotkeys.checkAccessibilityPermissions();
    if (std::exchange(m_hasAccessibilityPermission, has) != has)
        emit hasAccessibilityPermissionChanged();
}

void GlobalHotkeySettingsView::checkAgainLater()
{
    m_services.scheduler.after(2s, m_timer.get(), [this] {
        checkAccessibilityPermission();
        checkAgainLater();
    });
}

void GlobalHotkeySettingsView::requestAccessibilityPermissions()
{
    m_services.hotkeys.requestAccessibilityPermissions();
}

} // namespace jotwell

#include "Views/Settings/ShortcutRecorderView.h"

#include "Platform/Scheduler.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/SettingsService.h"
#include "Support/Logging.h"
#include "Views/Settings/ShortcutKeys.h"
#include "Views/Settings/ShortcutRecorderCoordinator.h"

#include <utility>

namespace jotwell {

ShortcutRecorderView::ShortcutRecorderView(ShortcutBinding binding,
                                           const RecorderServices& services, QObject* parent)
    : QObject(parent), m_binding(std::move(binding)), m_services(services)
{
}

ShortcutRecorderView::~ShortcutRecorderView()
{
    if (isRecording())
        m_services.hotkeys.setHotkeyTaker({});
}

bool ShortcutRecorderView::isWaiting() const
{
    return isRecording() && m_recorded == Hotkey();
}

bool ShortcutRecorderView::canSave() const
{
    return isRecording() && isValidShortcut(m_recorded);
}

QStringList ShortcutRecorderView::keys() const
{
    return isRecording() ? recordedShortcutKeys(m_recorded)
                         : shortcutStringToKeys(shortcutString(shortcut()));
}

void ShortcutRecorderView::setHasFocusedButton(bool hasFocusedButton)
{
    if (std::exchange(m_hasFocusedButton, hasFocusedButton) != hasFocusedButton)
        emit hasFocusedButtonChanged();
}

void ShortcutRecorderView::startRecording()
{
    m_previous = shortcut();
    m_recorded = {};
    m_coordinator = std::make_unique<ShortcutRecorderCoordinator>(*this, m_services.windowSystem);
    // The present hotkey never gets to a window.
    m_services.hotkeys.setHotkeyTaker([this](const Hotkey& hotkey) {
        handleEvent({KeyEvent::keyDown, static_cast<int>(hotkey.keyCode), hotkey.modifiers});
    });
    emit changed();
}

void ShortcutRecorderView::cancelRecording()
{
    m_recorded = m_previous;
    stopRecording();
}

void ShortcutRecorderView::saveShortcut()
{
    if (isValidShortcut(m_recorded)) {
        m_binding.setShortcut(m_recorded);
        m_services.scheduler.after({}, this, [this] { persist(); });
    }
    stopRecording();
}

void ShortcutRecorderView::stopRecording()
{
    m_coordinator.reset();
    m_services.hotkeys.setHotkeyTaker({});
    emit changed();
}

void ShortcutRecorderView::persist()
{
    const Hotkey saved = shortcut();
    m_services.settings.setGlobalHotkeyCode(saved.keyCode);
    m_services.settings.setGlobalHotkeyModifiers(saved.modifiers);
    m_services.hotkeys.updateHotkey(saved.keyCode, saved.modifiers);
    emit globalHotkeyChanged();
    printLine(QStringLiteral("Saved shortcut: keyCode=%1, modifiers=%2")
                  .arg(saved.keyCode)
                  .arg(saved.modifiers));
    printLine(QStringLiteral("Posted GlobalHotkeyChanged notification"));
}

bool ShortcutRecorderView::handleEvent(const KeyEvent& event)
{
    if (!isRecording())
        return true;
    const quint64 modifiers = event.flags & ModifierBit::all;
    if (event.type == KeyEvent::flagsChanged) {
        // Letting go of the keys doesn't wipe what has been chosen with them.
        if (m_recorded.keyCode == 0)
            record({0, modifiers});
        return true;
    }
    if (event.type != KeyEvent::keyDown || !isRecordable(event.keyCode))
        return true;
    record({event.keyCode, modifiers});
    return false;
}

void ShortcutRecorderView::record(const Hotkey& recorded)
{
    if (std::exchange(m_recorded, recorded) != recorded)
        emit changed();
}

} // namespace jotwell

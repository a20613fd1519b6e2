#pragma once

#include "Views/Settings/KeyView.h"
#include "Views/Settings/SettingsScreen.h"
#include "Views/Settings/ShortcutRecorderView.h"

#include <memory>

namespace jotwell {

/// The screen of the global hotkey: the recorder, and whether the user lets the program have a key
/// of the whole desktop, which is looked at every two seconds. Main thread.
class GlobalHotkeySettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(GlobalHotkeySettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(bool hasAccessibilityPermission READ hasAccessibilityPermission NOTIFY
                   hasAccessibilityPermissionChanged)
    Q_PROPERTY(jotwell::ShortcutRecorderView* recorder READ recorder CONSTANT)
    Q_PROPERTY(jotwell::KeyView* keyView READ keyView CONSTANT)

public:
    explicit GlobalHotkeySettingsView(const RecorderServices& services, QObject* parent = nullptr);

    [[nodiscard]] bool hasAccessibilityPermission() const { return m_hasAccessibilityPermission; }
    [[nodiscard]] qint64 customKeyCode() const { return m_custom.keyCode; }
    [[nodiscard]] quint64 customModifiers() const { return m_custom.modifiers; }
    [[nodiscard]] ShortcutRecorderView* recorder() { return &m_recorder; }
    [[nodiscard]] KeyView* keyView() { return &m_keyView; }

    void appear() override;
    void disappear() override;

    /// Reads the hotkey from the settings.
    void loadCustomHotkey();
    void checkAccessibilityPermission();
    Q_INVOKABLE void requestAccessibilityPermissions();

signals:
    void hasAccessibilityPermissionChanged();

private:
    void checkAgainLater();

    RecorderServices m_services;
    Hotkey m_custom;
    bool m_hasAccessibilityPermission = false;
    std::unique_ptr<QObject> m_timer; ///< the checks end with it
    ShortcutRecorderView m_recorder;
    KeyView m_keyView;
};

} // namespace jotwell

#pragma once

#include "Platform/KeyEvent.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>

namespace jotwell {

class GlobalHotkeyManager;
class Scheduler;
class SettingsService;
class ShortcutRecorderCoordinator;
class WindowSystem;

/// Where the shortcut lives that a recorder shows and changes; both have to be set.
struct ShortcutBinding {
    std::function<Hotkey()> shortcut;
    std::function<void(const Hotkey&)> setShortcut;
};

/// What a recorder is made of; all of it outlives the recorder.
struct RecorderServices {
    SettingsService& settings;
    GlobalHotkeyManager& hotkeys;
    Scheduler& scheduler;
    const WindowSystem& windowSystem;
};

/// The control with which the user picks another global hotkey: listens to the program's own keys
/// while it records, has the present hotkey handed to it, and stores and announces what is saved.
/// Main thread; owned by the screen that shows it.
class ShortcutRecorderView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(ShortcutRecorderState)
    QML_UNCREATABLE("belongs to the screen of the global hotkey")

    Q_PROPERTY(bool isRecording READ isRecording NOTIFY changed)
    Q_PROPERTY(bool isWaiting READ isWaiting NOTIFY changed)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed)
    Q_PROPERTY(QStringList keys READ keys NOTIFY changed)
    Q_PROPERTY(bool hasFocusedButton READ hasFocusedButton WRITE setHasFocusedButton NOTIFY
                   hasFocusedButtonChanged)

public:
    ShortcutRecorderView(ShortcutBinding binding, const RecorderServices& services,
                         QObject* parent = nullptr);
    ~ShortcutRecorderView() override;

    /// The present shortcut, as bound.
    [[nodiscard]] Hotkey shortcut() const { return m_binding.shortcut(); }
    [[nodiscard]] bool isRecording() const { return m_coordinator != nullptr; }
    /// What has been seen while recording, and what the shortcut was when that began.
    [[nodiscard]] const Hotkey& recorded() const { return m_recorded; }
    [[nodiscard]] const Hotkey& previous() const { return m_previous; }

    /// Recording, with nothing seen so far.
    [[nodiscard]] bool isWaiting() const;
    [[nodiscard]] bool canSave() const;
    /// What the key caps show: what has been seen while recording, else the present shortcut.
    [[nodiscard]] QStringList keys() const;

    /// Whether one of the recorder's own buttons has the keyboard, and is to be worked by it.
    [[nodiscard]] bool hasFocusedButton() const { return m_hasFocusedButton; }
    void setHasFocusedButton(bool hasFocusedButton);

    Q_INVOKABLE void startRecording();
    Q_INVOKABLE void cancelRecording();
    /// Stores what has been recorded, if it can be a hotkey, on a later turn of the event loop.
    Q_INVOKABLE void saveShortcut();

    /// What the monitor does with an event: whether it goes on to the windows. All of them do while
    /// there is no monitor.
    bool handleEvent(const KeyEvent& event);

signals:
    void changed();
    void hasFocusedButtonChanged();
    /// Another hotkey is stored and in force.
    void globalHotkeyChanged();

private:
    void record(const Hotkey& recorded);
    void stopRecording();
    void persist();

    ShortcutBinding m_binding;
    RecorderServices m_services;
    Hotkey m_recorded;
    Hotkey m_previous;
    bool m_hasFocusedButton = false;
    std::unique_ptr<ShortcutRecorderCoordinator> m_coordinator; ///< only while recording
};

} // namespace jotwell

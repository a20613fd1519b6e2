#pragma once

#include "Views/SecondaryWindow.h"
#include "Views/Settings/SimpleSettingsView.h"

#include <vector>

namespace jotwell {

/// Makes the settings window on demand, and lets it go when it is closed. Main thread.
class SettingsWindowController : public QObject {
    Q_OBJECT

public:
    static constexpr QSize contentSize{900, 600};

    SettingsWindowController(const SettingsServices& services, WindowSystem& windowSystem);
    ~SettingsWindowController() override;

    /// Shows the window with that entry of the sidebar. One that is open comes to the front and
    /// stays as it is.
    void showSettingsWithTab(const QString& tab);

    /// Both null while there is none.
    [[nodiscard]] SecondaryWindow* settingsWindow() { return m_window.get(); }
    [[nodiscard]] SimpleSettingsView* view() { return m_window ? m_view : nullptr; }

signals:
    /// The user has saved another hotkey, which is in force by now.
    void globalHotkeyChanged();

private:
    void open(const QString& tab);
    void windowWillClose();

    SettingsServices m_services;
    WindowSystem& m_windowSystem;
    std::unique_ptr<SecondaryWindow> m_window;
    SimpleSettingsView* m_view = nullptr;                   ///< of the window
    std::vector<std::unique_ptr<SecondaryWindow>> m_closed; ///< until out of their last event
};

} // namespace jotwell

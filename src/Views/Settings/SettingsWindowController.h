#pragma once

#include "Views/Settings/SimpleSettingsView.h"

#include <memory>
#include <vector>

namespace jotwell {

class SettingsWindow;

/// Makes the settings window on demand, and lets it go when it is closed. Main thread.
class SettingsWindowController : public QObject {
    Q_OBJECT

public:
    SettingsWindowController(const SettingsServices& services, WindowSystem& windowSystem);
    ~SettingsWindowController() override;

    /// Shows the window with that entry of the sidebar. One that is open comes to the front and
    /// stays as it is.
    void showSettingsWithTab(const QString& tab);

    /// Null while there is none.
    [[nodiscard]] SettingsWindow* settingsWindow()
    {
        return m_open ? m_open->window.get() : nullptr;
    }

private:
    struct Open {
        std::unique_ptr<SimpleSettingsView> view;
        std::unique_ptr<SettingsWindow> window; ///< shows the view, and goes first
    };

    void open(const QString& tab);
    void windowWillClose();

    SettingsServices m_services;
    WindowSystem& m_windowSystem;
    std::unique_ptr<Open> m_open;
    std::vector<std::unique_ptr<Open>> m_closed; ///< until the window is out of its last event
};

} // namespace jotwell

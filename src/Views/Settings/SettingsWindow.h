#pragma once

#include <QQuickView>

namespace jotwell {

class SimpleSettingsView;
class WindowSystem;

/// The window around the settings, as other windows are. Main thread.
class SettingsWindow : public QQuickView {
    Q_OBJECT

public:
    static constexpr QSize contentSize{900, 600};

    /// Shows `view`; both outlive the window.
    SettingsWindow(SimpleSettingsView& view, WindowSystem& windowSystem);

    /// Shows the window in front of all others, also from an icon, and gives it the keyboard.
    void makeKeyAndOrderFront();

signals:
    /// The window closes; it isn't to be destroyed from within.
    void willClose();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void centre();

    WindowSystem& m_windowSystem;
};

} // namespace jotwell

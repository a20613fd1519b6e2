#pragma once

#include "Views/Foreground.h"

#include <QQuickView>

#include <memory>

namespace jotwell {

class Scheduler;
class WindowSystem;

/// A window beside the capture window, as other programs have them: made on demand, and destroyed
/// once it is closed. Main thread.
class SecondaryWindow : public QQuickView {
    Q_OBJECT

public:
    struct Looks {
        QString title;
        QSize size;
        QSize leastSize;  ///< the same as `size` if it can't be resized
        QString viewFile; ///< of QML, within the module; has a property `view`
    };

    /// Shows `view`, which goes with the window. Stands in the middle of the main screen.
    SecondaryWindow(const Looks& looks, std::unique_ptr<QObject> view, Scheduler& scheduler,
                    WindowSystem& windowSystem);
    ~SecondaryWindow() override;

    /// Shows the window in front of all others, also from an icon, and gives it the keyboard.
    void makeKeyAndOrderFront();

signals:
    /// The window closes, for good; it isn't to be destroyed from within.
    void willClose();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void centre(QSize size);

    WindowSystem& m_windowSystem;
    Foreground m_foreground;
    std::unique_ptr<QObject> m_view;
    bool m_isClosed = false;
};

} // namespace jotwell

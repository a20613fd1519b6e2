#pragma once

#include <QObject>

#include <memory>

class QWindow;

namespace jotwell {

class Scheduler;
class WindowSystem;

/// What brings a window to the front of all others, be it that it can be raised or that it has to
/// come up anew. Main thread; what it is made of outlives it, but the window may own it.
class Foreground : public QObject {
    Q_OBJECT

public:
    Foreground(QWindow& window, Scheduler& scheduler, WindowSystem& windowSystem);

    /// Whether nothing covers the window, which is shown, or it is about to get the keyboard.
    [[nodiscard]] bool isInFront() const;

    /// Makes the window ready to be shown in front: it is no icon any more, and hidden if it has to
    /// come up anew.
    void prepare();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void awaitKeyboard();
    [[nodiscard]] bool hasVisibleChild() const;

    QWindow& m_window;
    Scheduler& m_scheduler;
    WindowSystem& m_windowSystem;
    std::unique_ptr<QObject> m_timer; ///< of the latest showing
    bool m_awaitsKeyboard = false;
};

} // namespace jotwell

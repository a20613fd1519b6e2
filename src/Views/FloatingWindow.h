#pragma once

#include "Platform/WindowSystem.h"
#include "Views/Foreground.h"

#include <QPointer>
#include <QQuickItem>
#include <QQuickView>

#include <optional>

namespace jotwell {

class FloatingWindowView;
class Scheduler;

/// The borderless window around the capture card. It can take the keyboard, stays above other
/// windows, takes clicks only on the card, and is only ever hidden. Main thread.
class FloatingWindow : public QQuickView {
    Q_OBJECT

public:
    static constexpr QSize contentSize{860, 600};

    /// Shows `view`, which must outlive the window, as must the others.
    FloatingWindow(FloatingWindowView& view, Scheduler& scheduler, WindowSystem& windowSystem);
    ~FloatingWindow() override;

    /// Neither hidden nor put away by a window manager.
    [[nodiscard]] bool isOnScreen() const;
    /// On screen and covered by nothing, or about to be.
    [[nodiscard]] bool isInFront() const;
    /// Moves to the middle of the main screen; stays where it is if there is none.
    void centre();
    /// Whether an input method is at work in the text field.
    [[nodiscard]] bool isComposing() const;
    void makeKeyAndOrderFront();

protected:
    void closeEvent(QCloseEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;

private:
    void load();
    void followScreens();
    void followScreen();
    void keepReachable();
    void updateShape();

    FloatingWindowView& m_view;
    WindowSystem& m_windowSystem;
    Foreground m_foreground;
    QPointer<QQuickItem> m_card;
    QMetaObject::Connection m_screenConnection;
    std::optional<WindowShape> m_shape; ///< that the window system has been told
    bool m_wasExposed = false;
    bool m_hasAppeared = false;
};

} // namespace jotwell

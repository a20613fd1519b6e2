#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickView>

namespace jotwell {

class FloatingWindowView;
class WindowSystem;

/// The borderless window around the capture card. It can take the keyboard, stays above other
/// windows and is only ever hidden. Main thread.
class FloatingWindow : public QQuickView {
    Q_OBJECT

public:
    static constexpr QSize contentSize{860, 600};

    /// Shows `view`, which must outlive the window, as must `windowSystem`.
    FloatingWindow(FloatingWindowView& view, WindowSystem& windowSystem);

    /// Moves to the middle of the main screen; stays where it is if there is none.
    void centre();
    void makeKeyAndOrderFront();

signals:
    /// Escape was pressed and no input method has a use for it.
    void escapePressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void load();
    void updateMask();

    FloatingWindowView& m_view;
    WindowSystem& m_windowSystem;
    QPointer<QQuickItem> m_card;
    bool m_hasAppeared = false;
    bool m_isCompositing = true; ///< when it was last shown
};

} // namespace jotwell

#pragma once

#include "Views/FloatingWindow.h"

#include <QPainter>
#include <QRasterWindow>

#include <functional>
#include <utility>

namespace jotwell::bench {

/// The least that a resident Qt window can do: it has the size of the capture window and fills a
/// card. Main thread.
class BareWindow : public QRasterWindow {
public:
    BareWindow()
    {
        setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        resize(FloatingWindow::contentSize);
        QSurfaceFormat transparent = format();
        transparent.setAlphaBufferSize(8);
        setFormat(transparent);
    }

    /// Once, when the window has come onto the screen and is drawn.
    std::function<void()> shown;
    /// After each frame.
    std::function<void()> drawn;

    void setCardHeight(int height)
    {
        m_cardHeight = height;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(event->rect(), Qt::transparent);
        painter.fillRect(30, 30, width() - 60, m_cardHeight, Qt::white);
    }

    bool event(QEvent* event) override
    {
        const bool handled = QRasterWindow::event(event);
        if (event->type() == QEvent::Expose && isExposed() && shown)
            std::exchange(shown, {})();
        if (event->type() == QEvent::UpdateRequest && drawn)
            drawn();
        return handled;
    }

private:
    int m_cardHeight = 164;
};

} // namespace jotwell::bench

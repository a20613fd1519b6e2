#include "Views/SecondaryWindow.h"

#include "Platform/WindowSystem.h"
#include "Views/ViewResources.h"

#include <QCloseEvent>
#include <QQmlEngine>
#include <QScreen>

#include <utility>

namespace jotwell {

SecondaryWindow::SecondaryWindow(const Looks& looks, std::unique_ptr<QObject> view,
                                 Scheduler& scheduler, WindowSystem& windowSystem)
    : m_windowSystem(windowSystem), m_foreground(*this, scheduler, windowSystem),
      m_view(std::move(view))
{
    setTitle(looks.title);
    setResizeMode(SizeRootObjectToView);
    setMinimumSize(looks.leastSize);
    if (looks.leastSize == looks.size)
        setMaximumSize(looks.size);
    resize(looks.size);
    installViewResources(*engine());
    setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(m_view.get())}});
    setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Jotwell/") + looks.viewFile));
    centre(looks.size);
}

// What shows the view goes first.
SecondaryWindow::~SecondaryWindow()
{
    setSource(QUrl());
}

// Smaller than it should be where the screen is, so that all of it can be reached.
void SecondaryWindow::centre(QSize size)
{
    QScreen* const main = m_windowSystem.mainScreen();
    if (!main)
        return;
    setScreen(main);
    const QRect frame = main->availableGeometry();
    const QSize fitting = size.boundedTo(frame.size());
    const QSize room = frame.size() - fitting;
    setMinimumSize(minimumSize().boundedTo(fitting));
    setGeometry({frame.topLeft() + QPoint(room.width() / 2, room.height() / 2), fitting});
}

// Shown plainly, a window that fills the screen would shrink.
void SecondaryWindow::makeKeyAndOrderFront()
{
    m_foreground.prepare();
    setVisible(true);
    m_windowSystem.activate(this);
}

// A second wish to close may be under way before the window has gone.
void SecondaryWindow::closeEvent(QCloseEvent* event)
{
    QQuickView::closeEvent(event);
    if (event->isAccepted() && !std::exchange(m_isClosed, true))
        emit willClose();
}

} // namespace jotwell

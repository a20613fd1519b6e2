#include "Views/FloatingWindow.h"

#include "Views/FloatingWindowView.h"
#include "Views/ViewResources.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace jotwell {

FloatingWindow::FloatingWindow(FloatingWindowView& view, Scheduler& scheduler,
                               WindowSystem& windowSystem)
    : m_view(view), m_windowSystem(windowSystem), m_foreground(*this, scheduler, windowSystem)
{
    setTitle(QStringLiteral("Jotwell"));
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setColor(Qt::transparent);
    setResizeMode(SizeRootObjectToView);
    setMinimumSize(contentSize);
    setMaximumSize(contentSize);
    resize(contentSize);
    load();
    centre();
    followScreens();
    m_windowSystem.watchCompositing([this] {
        if (isVisible())
            updateShape();
    });
}

FloatingWindow::~FloatingWindow()
{
    m_windowSystem.watchCompositing({});
}

void FloatingWindow::load()
{
    installViewResources(*engine());
    setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&m_view)}});
    setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Jotwell/FloatingWindowView.qml")));
    m_card = rootObject()->findChild<QQuickItem*>(QStringLiteral("card"));
    // Once for each frame, when everything that moves has moved.
    connect(this, &QQuickWindow::afterAnimating, this, &FloatingWindow::updateShape);
}

// Qt doesn't move a window off a screen that has gone.
void FloatingWindow::followScreens()
{
    connect(qApp, &QGuiApplication::screenRemoved, this, &FloatingWindow::keepReachable,
            Qt::QueuedConnection);
    connect(this, &QWindow::screenChanged, this, &FloatingWindow::followScreen);
    followScreen();
}

void FloatingWindow::followScreen()
{
    disconnect(m_screenConnection);
    if (screen())
        m_screenConnection = connect(screen(), &QScreen::availableGeometryChanged, this,
                                     &FloatingWindow::keepReachable, Qt::QueuedConnection);
}

// The next show brings it back anyway.
void FloatingWindow::keepReachable()
{
    const QRect card = m_card->mapRectToScene(m_card->boundingRect()).toRect();
    const auto screens = QGuiApplication::screens();
    const bool isReachable = std::ranges::any_of(screens, [&](const QScreen* each) {
        return each->geometry().contains(card.translated(position()));
    });
    if (isVisible() && !isReachable)
        centre();
}

void FloatingWindow::centre()
{
    QScreen* const main = m_windowSystem.mainScreen();
    if (!main)
        return;
    setScreen(main); // first, as its scale is that of the place
    const QRect frame = main->availableGeometry();
    const QSize room = frame.size() - contentSize;
    setGeometry({frame.topLeft() + QPoint(room.width() / 2, room.height() / 2), contentSize});
}

bool FloatingWindow::isComposing() const
{
    return m_view.editor()->isComposing();
}

bool FloatingWindow::isOnScreen() const
{
    return isVisible() && !windowStates().testFlag(Qt::WindowMinimized);
}

bool FloatingWindow::isInFront() const
{
    return isOnScreen() && m_foreground.isInFront();
}

void FloatingWindow::makeKeyAndOrderFront()
{
    m_foreground.prepare();
    // A window manager forgets these when it takes a window off the screen.
    m_windowSystem.makeAccessory(this);
    updateShape();
    show();
    m_windowSystem.activate(this);
    if (!std::exchange(m_hasAppeared, true))
        m_view.appear();
}

// Without see-through pixels the window is cut to the card, and what shines through at its corners
// is the card's own colour: else both would be black.
void FloatingWindow::updateShape()
{
    const bool isCut = !m_windowSystem.isCompositing();
    const QObject& root = *rootObject();
    setColor(isCut ? root.property("cardColor").value<QColor>() : QColor(Qt::transparent));
    const WindowShape shape{m_card->mapRectToScene(m_card->boundingRect()),
                            root.property("radius").toDouble() * m_card->scale(),
                            devicePixelRatio(), isCut};
    if (shape != std::exchange(m_shape, shape))
        m_windowSystem.setShape(this, shape);
}

// A window manager that has just taken the window in may not have heard of the shape before.
void FloatingWindow::exposeEvent(QExposeEvent* event)
{
    QQuickView::exposeEvent(event);
    if (std::exchange(m_wasExposed, isExposed()) || !isExposed())
        return;
    m_shape.reset();
    updateShape();
}

void FloatingWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    hide();
}

} // namespace jotwell

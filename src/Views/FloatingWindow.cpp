#include "Views/FloatingWindow.h"

#include "Platform/WindowSystem.h"
#include "Views/FloatingWindowView.h"
#include "Views/ViewResources.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainterPath>
#include <QQmlEngine>
#include <QScreen>

namespace jotwell {

namespace {

QRegion roundedRegion(const QRectF& rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

} // namespace

FloatingWindow::FloatingWindow(FloatingWindowView& view, WindowSystem& windowSystem)
    : m_view(view), m_windowSystem(windowSystem)
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
}

void FloatingWindow::load()
{
    installViewResources(*engine());
    setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&m_view)}});
    setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Jotwell/FloatingWindowView.qml")));
    m_card = rootObject()->findChild<QQuickItem*>(QStringLiteral("card"));
    connect(m_card, &QQuickItem::scaleChanged, this, &FloatingWindow::updateMask);
    connect(m_card, &QQuickItem::heightChanged, this, &FloatingWindow::updateMask);
}

void FloatingWindow::centre()
{
    const QScreen* screen = m_windowSystem.mainScreen();
    if (!screen)
        return;
    const QRect frame = screen->availableGeometry();
    setPosition(frame.x() + (frame.width() - contentSize.width()) / 2,
                frame.y() + (frame.height() - contentSize.height()) / 2);
}

void FloatingWindow::makeKeyAndOrderFront()
{
    // A window manager forgets these when it takes a window off the screen.
    m_windowSystem.makeAccessory(this);
    m_isCompositing = m_windowSystem.isCompositing();
    updateMask();
    show();
    m_windowSystem.activate(this);
    if (!std::exchange(m_hasAppeared, true))
        m_view.appear();
}

// With see-through pixels the window is the card and its shadow, and clicks beside them go to what
// lies behind. Without, it is cut to the card, and what shines through at its corners is the card's
// own colour: else both would be black.
void FloatingWindow::updateMask()
{
    const QObject& root = *rootObject();
    const QRectF card = m_card->mapRectToScene(m_card->boundingRect());
    if (m_isCompositing) {
        const double margin = root.property("padding").toDouble();
        setColor(Qt::transparent);
        setMask(card.adjusted(-margin, -margin, margin, margin).toAlignedRect());
    } else {
        const double radius = root.property("radius").toDouble() * m_card->scale();
        setColor(root.property("cardColor").value<QColor>());
        setMask(roundedRegion(card, radius));
    }
}

void FloatingWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !m_view.editor()->isComposing())
        emit escapePressed();
    else
        QQuickView::keyPressEvent(event);
}

void FloatingWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    hide();
}

} // namespace jotwell

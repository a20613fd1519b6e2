#include "Views/Settings/SettingsWindow.h"

#include "Platform/WindowSystem.h"
#include "Views/Settings/SimpleSettingsView.h"
#include "Views/ViewResources.h"

#include <QCloseEvent>
#include <QQmlEngine>
#include <QScreen>

namespace jotwell {

namespace {

constexpr QSize leastSize(640, 360);

} // namespace

SettingsWindow::SettingsWindow(SimpleSettingsView& view, WindowSystem& windowSystem)
    : m_windowSystem(windowSystem)
{
    setTitle(QStringLiteral("Settings"));
    setResizeMode(SizeRootObjectToView);
    setMinimumSize(leastSize);
    resize(contentSize);
    installViewResources(*engine());
    setInitialProperties({{QStringLiteral("view"), QVariant::fromValue(&view)}});
    setSource(QUrl(
        QStringLiteral("qrc:/qt-project.org/imports/Jotwell/Settings/SimpleSettingsView.qml")));
    centre();
}

// Smaller than it should be where the screen is, so that all of it can be reached.
void SettingsWindow::centre()
{
    QScreen* const main = m_windowSystem.mainScreen();
    if (!main)
        return;
    setScreen(main);
    const QRect frame = main->availableGeometry();
    const QSize size = contentSize.boundedTo(frame.size());
    const QSize room = frame.size() - size;
    setGeometry({frame.topLeft() + QPoint(room.width() / 2, room.height() / 2), size});
}

void SettingsWindow::makeKeyAndOrderFront()
{
    setWindowStates(windowStates() & ~Qt::WindowStates(Qt::WindowMinimized));
    show();
    m_windowSystem.activate(this);
}

void SettingsWindow::closeEvent(QCloseEvent* event)
{
    QQuickView::closeEvent(event);
    if (event->isAccepted())
        emit willClose();
}

} // namespace jotwell

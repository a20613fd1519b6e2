#include "Platform/linux/XcbWindowSystem.h"

#include "Platform/linux/PcKeys.h"
#include "Platform/linux/XcbConnection.h"
#include "Platform/linux/XcbScreens.h"
#include "Platform/linux/XcbShape.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <array>

namespace jotwell {

namespace {

const QByteArray compositor = QByteArrayLiteral("_NET_WM_CM_S");
const QByteArray windowManager = QByteArrayLiteral("WM_S");

xcb_window_t idOf(QWindow* window)
{
    return static_cast<xcb_window_t>(window->winId());
}

// A window manager refuses the keyboard to an application which had no key or click of late. The
// user's wish came by another way: it is handed on as that of a taskbar would be.
void askForFocus(xcb_window_t window)
{
    constexpr uint32_t fromTaskbar = 2;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = xcbAtom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromTaskbar;
    xcb_send_event(xcbConnection(), 0, xcbScreen()->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

} // namespace

XcbWindowSystem::XcbWindowSystem() : m_selections({compositor, windowManager}) {}

QScreen* XcbWindowSystem::mainScreen() const
{
    if (QGuiApplication::screens().size() < 2)
        return QGuiApplication::primaryScreen(); // without waiting for the server
    if (QScreen* screen = xcbConnection() ? xcbScreenWithFocus() : nullptr)
        return screen;
    if (QScreen* screen = QGuiApplication::screenAt(QCursor::pos()))
        return screen;
    return QGuiApplication::primaryScreen();
}

bool XcbWindowSystem::isCompositing() const
{
    return !xcbConnection() || m_selections.hasOwner(compositor);
}

void XcbWindowSystem::watchCompositing(std::function<void()> changed)
{
    m_selections.changed = [changed = std::move(changed)](const QByteArray& name) {
        if (name == compositor && changed)
            changed();
    };
}

void XcbWindowSystem::makeAccessory(QWindow* window)
{
    auto* connection = xcbConnection();
    if (!connection)
        return;
    const auto id = idOf(window);
    const std::array states{xcbAtom("_NET_WM_STATE_SKIP_TASKBAR"),
                            xcbAtom("_NET_WM_STATE_SKIP_PAGER"), xcbAtom("_NET_WM_STATE_STICKY")};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, xcbAtom("_NET_WM_STATE"),
                        XCB_ATOM_ATOM, 32, states.size(), states.data());
    constexpr uint32_t allDesktops = 0xffffffff;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, xcbAtom("_NET_WM_DESKTOP"),
                        XCB_ATOM_CARDINAL, 32, 1, &allDesktops);
}

void XcbWindowSystem::setShape(QWindow* window, const WindowShape& shape)
{
    if (xcbConnection())
        setXcbShape(idOf(window), shape);
    else
        window->setMask(pixelsOf({shape.rect, shape.radius}));
}

bool XcbWindowSystem::isInFront(const QWindow* window) const
{
    return xcbConnection() || window->isActive();
}

void XcbWindowSystem::activate(QWindow* window)
{
    window->raise();
    auto* connection = xcbConnection();
    if (!connection) {
        window->requestActivate();
        return;
    }
    if (m_selections.hasOwner(windowManager))
        askForFocus(idOf(window));
    else
        xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, idOf(window), XCB_CURRENT_TIME);
    xcb_flush(connection);
}

std::optional<int> XcbWindowSystem::keyCode(const QKeyEvent& event) const
{
    return keyCodeOfScanCode(event.nativeScanCode());
}

} // namespace jotwell

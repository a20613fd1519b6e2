#include "Platform/linux/XcbWindowSystem.h"

#include "Platform/linux/XcbConnection.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <array>
#include <optional>

namespace jotwell {

namespace {

std::optional<xcb_window_t> activeWindow()
{
    auto* connection = xcbConnection();
    const auto cookie = xcb_get_property(connection, 0, xcbScreen()->root,
                                         xcbAtom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1);
    const XcbReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) < 4)
        return std::nullopt;
    const auto window = *static_cast<xcb_window_t*>(xcb_get_property_value(reply.get()));
    return window == XCB_WINDOW_NONE ? std::nullopt : std::optional(window);
}

// The middle of a window, in the X server's pixels.
std::optional<QPoint> centreOf(xcb_window_t window)
{
    auto* connection = xcbConnection();
    const auto sizeCookie = xcb_get_geometry(connection, window);
    const auto placeCookie = xcb_translate_coordinates(connection, window, xcbScreen()->root, 0, 0);
    const XcbReply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, sizeCookie, nullptr));
    const XcbReply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection, placeCookie, nullptr));
    if (!size || !place)
        return std::nullopt;
    return QPoint(place->dst_x + size->width / 2, place->dst_y + size->height / 2);
}

// Qt scales the size of a screen, but not its place.
QScreen* screenAtPixel(QPoint point)
{
    for (QScreen* screen : QGuiApplication::screens()) {
        const QRect geometry = screen->geometry();
        const QRect pixels(geometry.topLeft(), geometry.size() * screen->devicePixelRatio());
        if (pixels.contains(point))
            return screen;
    }
    return nullptr;
}

QScreen* screenWithFocus()
{
    if (!xcbConnection())
        return nullptr;
    const auto window = activeWindow();
    const auto centre = window ? centreOf(*window) : std::nullopt;
    return centre ? screenAtPixel(*centre) : nullptr;
}

} // namespace

QScreen* XcbWindowSystem::mainScreen() const
{
    if (QScreen* screen = screenWithFocus())
        return screen;
    if (QScreen* screen = QGuiApplication::screenAt(QCursor::pos()))
        return screen;
    return QGuiApplication::primaryScreen();
}

bool XcbWindowSystem::isCompositing() const
{
    return !xcbConnection() || xcbSelectionHasOwner("_NET_WM_CM_S0");
}

void XcbWindowSystem::makeAccessory(QWindow* window)
{
    auto* connection = xcbConnection();
    if (!connection)
        return;
    const auto id = static_cast<xcb_window_t>(window->winId());
    const std::array states{xcbAtom("_NET_WM_STATE_SKIP_TASKBAR"),
                            xcbAtom("_NET_WM_STATE_SKIP_PAGER"), xcbAtom("_NET_WM_STATE_STICKY")};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, xcbAtom("_NET_WM_STATE"),
                        XCB_ATOM_ATOM, 32, states.size(), states.data());
    constexpr uint32_t allDesktops = 0xffffffff;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, xcbAtom("_NET_WM_DESKTOP"),
                        XCB_ATOM_CARDINAL, 32, 1, &allDesktops);
}

// Qt asks as an application, and a window manager refuses that to one which had no key or click of
// late. The user's wish came by another way: it is handed on as that of a taskbar would be.
void XcbWindowSystem::activate(QWindow* window)
{
    window->raise();
    window->requestActivate();
    auto* connection = xcbConnection();
    if (!connection)
        return;
    constexpr uint32_t fromTaskbar = 2;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window->winId());
    message.type = xcbAtom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = fromTaskbar;
    xcb_send_event(connection, 0, xcbScreen()->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

} // namespace jotwell

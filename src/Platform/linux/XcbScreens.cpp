#include "Platform/linux/XcbScreens.h"

#include "Platform/linux/XcbConnection.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
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

// Where a window is, in the X server's pixels.
std::optional<QRect> pixelsOf(xcb_window_t window)
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
    return QRect(place->dst_x, place->dst_y, size->width, size->height);
}

// Qt scales the size of a screen, but not its place.
QRect pixelsOf(const QScreen& screen)
{
    const QRect geometry = screen.geometry();
    return {geometry.topLeft(), geometry.size() * screen.devicePixelRatio()};
}

int sharedPixels(const QScreen& screen, const QRect& rect)
{
    const QSize shared = pixelsOf(screen).intersected(rect).size();
    return shared.width() * shared.height();
}

} // namespace

QScreen* xcbScreenWithFocus()
{
    const auto window = activeWindow();
    const auto rect = window ? pixelsOf(*window) : std::nullopt;
    if (!rect)
        return nullptr;
    const auto screens = QGuiApplication::screens();
    const auto most = std::ranges::max_element(
        screens, {}, [&](const QScreen* screen) { return sharedPixels(*screen, *rect); });
    return most != screens.end() && sharedPixels(**most, *rect) > 0 ? *most : nullptr;
}

} // namespace jotwell

#include "Platform/linux/XcbConnection.h"

#include <QGuiApplication>
#include <QHash>
#include <QtGui/qguiapplication_platform.h>

namespace jotwell {

xcb_connection_t* xcbConnection()
{
    if (!qGuiApp)
        return nullptr;
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->connection() : nullptr;
}

const xcb_screen_t* xcbScreen()
{
    return xcb_setup_roots_iterator(xcb_get_setup(xcbConnection())).data;
}

xcb_atom_t xcbAtom(const QByteArray& name)
{
    static QHash<QByteArray, xcb_atom_t> known; // they hold as long as the server
    if (const auto atom = known.constFind(name); atom != known.constEnd())
        return *atom;
    auto* connection = xcbConnection();
    const auto cookie =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return known[name] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t xcbRootOf(xcb_connection_t* connection, int screenNumber)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screenNumber > 0 && screens.rem > 1; --screenNumber)
        xcb_screen_next(&screens);
    return screens.data->root;
}

bool xcbSelectionHasOwner(const QByteArray& name)
{
    auto* connection = xcbConnection();
    const auto cookie = xcb_get_selection_owner(connection, xcbAtom(name));
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, cookie, nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace jotwell

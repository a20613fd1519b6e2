#pragma once

#include <QByteArray>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace jotwell {

/// The program's own connection to the X server; null on other window systems. Main thread.
[[nodiscard]] xcb_connection_t* xcbConnection();

/// The first screen of that connection, on which all windows of the program are.
[[nodiscard]] const xcb_screen_t* xcbScreen();

[[nodiscard]] xcb_atom_t xcbAtom(const QByteArray& name);

struct XcbDisconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection beside the program's own.
using OwnXcbConnection = std::unique_ptr<xcb_connection_t, XcbDisconnect>;

/// The root window of that screen of a connection.
[[nodiscard]] xcb_window_t xcbRootOf(xcb_connection_t* connection, int screenNumber);

/// Whether some client holds the selection of that name.
[[nodiscard]] bool xcbSelectionHasOwner(const QByteArray& name);

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// A reply of the X server.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

} // namespace jotwell

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

/// Whether some client holds the selection of that name.
[[nodiscard]] bool xcbSelectionHasOwner(const QByteArray& name);

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// A reply of the X server.
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

} // namespace jotwell

#pragma once

#include "Platform/linux/XcbConnection.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

class QSocketNotifier;

namespace jotwell {

/// Whether anybody holds certain selections of the X server, as compositors, window managers and
/// the like do for as long as they run. It is known without asking, over a connection of its own;
/// where there is no X server nobody holds them. Main thread.
class XcbSelectionWatch {
public:
    /// Watches the selections that are called by these names and the number of the screen.
    explicit XcbSelectionWatch(const std::vector<QByteArray>& names);
    ~XcbSelectionWatch();

    [[nodiscard]] bool hasOwner(const QByteArray& name) const;

    /// Called from the event loop when the answer for one of them has changed.
    std::function<void(const QByteArray& name)> changed;

private:
    struct Selection {
        QByteArray name;
        xcb_atom_t atom;
        xcb_window_t owner;
    };

    void select(const QByteArray& name, int screenNumber);
    void readEvents();
    void setOwner(xcb_atom_t atom, xcb_window_t owner);

    OwnXcbConnection m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    uint8_t m_notifyEvent = 0; ///< the type of the events that tell of owners
    std::vector<Selection> m_selections;
};

} // namespace jotwell

#include "Platform/linux/XcbSelectionWatch.h"

#include <QSocketNotifier>

#include <algorithm>
#include <utility>

#include <xcb/xfixes.h>

namespace jotwell {

namespace {

constexpr uint32_t everyChange = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                 XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                 XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

} // namespace

XcbSelectionWatch::XcbSelectionWatch(const std::vector<QByteArray>& names)
{
    if (!xcbConnection())
        return;
    int screenNumber = 0;
    m_connection.reset(xcb_connect(nullptr, &screenNumber));
    auto* connection = m_connection.get();
    if (xcb_connection_has_error(connection))
        return;
    const auto* extension = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (!extension || !extension->present)
        return;
    m_notifyEvent = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    // The server answers no other request of the extension before it has been asked this one.
    xcb_discard_reply(connection, xcb_xfixes_query_version(connection, 5, 0).sequence);
    for (const QByteArray& name : names)
        select(name, screenNumber);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(connection),
                                                   QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { readEvents(); });
    readEvents();
}

XcbSelectionWatch::~XcbSelectionWatch() = default;

bool XcbSelectionWatch::hasOwner(const QByteArray& name) const
{
    const auto found = std::ranges::find(m_selections, name, &Selection::name);
    return found != m_selections.end() && found->owner != XCB_WINDOW_NONE;
}

// The owner is asked for after the events, so that none is missed between the two.
void XcbSelectionWatch::select(const QByteArray& name, int screenNumber)
{
    auto* connection = m_connection.get();
    const auto atom = xcbAtom(name + QByteArray::number(screenNumber));
    xcb_xfixes_select_selection_input(connection, xcbRootOf(connection, screenNumber), atom,
                                      everyChange);
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, atom), nullptr));
    m_selections.push_back({name, atom, reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE}});
}

void XcbSelectionWatch::readEvents()
{
    auto* connection = m_connection.get();
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        constexpr uint8_t sentByClient = 0x80;
        if ((event->response_type & ~sentByClient) != m_notifyEvent)
            continue;
        const auto* its = reinterpret_cast<xcb_xfixes_selection_notify_event_t*>(event.get());
        setOwner(its->selection, its->owner);
    }
    // A lost connection would be readable for ever.
    if (xcb_connection_has_error(connection))
        m_notifier->setEnabled(false);
}

void XcbSelectionWatch::setOwner(xcb_atom_t atom, xcb_window_t owner)
{
    const auto found = std::ranges::find(m_selections, atom, &Selection::atom);
    if (found == m_selections.end())
        return;
    const bool hadOwner = std::exchange(found->owner, owner) != XCB_WINDOW_NONE;
    if (hadOwner != (owner != XCB_WINDOW_NONE) && changed)
        changed(QByteArray(found->name));
}

} // namespace jotwell

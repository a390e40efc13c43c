#pragma once

#include <QByteArray>
#include <QSocketNotifier>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace kestro {

/// A connection to an X server; closed with the last that holds it, because it comes as the answer of a task
/// that nobody may be waiting for any more.
using XConnection = std::shared_ptr<xcb_connection_t>;

/// An answer or an event of the X server; null where it gave none.
template <typename Reply>
using XReply = std::unique_ptr<Reply, decltype(&std::free)>;

/// Takes over what a call of xcb's has answered.
template <typename Reply>
[[nodiscard]] XReply<Reply> xReply(Reply* reply)
{
    return {reply, &std::free};
}

/// Connects, and waits for the server for ever if need be: for a thread that may be left behind. Null where
/// none answers. `display` as in DISPLAY, not empty.
[[nodiscard]] XConnection openX(const QByteArray& display);

/// The root window of the first screen.
[[nodiscard]] xcb_window_t rootOf(const XConnection& connection);

/// The number that stands for a word; XCB_ATOM_NONE where nobody has ever said it. Waits for the server.
[[nodiscard]] xcb_atom_t atomOf(const XConnection& connection, std::string_view word);

/// A property of a window, up to `most` times four bytes of it; null where that does not have it. Likewise.
[[nodiscard]] XReply<xcb_get_property_reply_t> propertyOf(const XConnection& connection, xcb_window_t window,
                                                          xcb_atom_t property, std::uint32_t most);

/// What an X server tells of on a connection of ours, read by the event loop. Owned by who listens. Main
/// thread. Tested by XSyncIdleSourceTest.
class XEvents final {
public:
    /// Each may destroy this. `onLost` comes once, and nothing after it.
    struct Handlers {
        std::function<void(const xcb_generic_event_t&)> onEvent;
        std::function<void()> onLost;
    };

    XEvents(XConnection connection, Handlers handlers);
    ~XEvents();
    XEvents(const XEvents&) = delete;
    XEvents& operator=(const XEvents&) = delete;

private:
    void read();

    XConnection m_connection; ///< see there
    Handlers m_handlers;
    std::shared_ptr<bool> m_isThere = std::make_shared<bool>(true); ///< shared with a call that is under way
    QSocketNotifier m_notifier;
};

} // namespace kestro

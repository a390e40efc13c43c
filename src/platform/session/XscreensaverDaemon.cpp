#include "platform/session/XscreensaverDaemon.h"

#include <string_view>
#include <utility>
#include <vector>

namespace kestro {

namespace {

constexpr std::string_view markName = "_SCREENSAVER_VERSION";

std::vector<xcb_window_t> childrenOf(xcb_connection_t* connection, xcb_window_t window)
{
    const auto tree = xReply(xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    if (!tree) return {};
    const auto* const first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

/// The first of the windows that has the property; all are asked at once.
std::optional<xcb_window_t> firstMarked(xcb_connection_t* connection, xcb_atom_t mark,
                                        const std::vector<xcb_window_t>& windows)
{
    std::vector<xcb_get_property_cookie_t> cookies;
    for (const auto window : windows)
        cookies.push_back(xcb_get_property(connection, 0, window, mark, XCB_GET_PROPERTY_TYPE_ANY, 0, 0));
    std::optional<xcb_window_t> found;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto property = xReply(xcb_get_property_reply(connection, cookies[i], nullptr));
        if (!found && property && property->type != XCB_NONE) found = windows[i];
    }
    return found;
}

bool isEndOf(xcb_window_t window, const xcb_generic_event_t& event)
{
    constexpr int sentByClient = 0x80;
    return (event.response_type & ~sentByClient) == XCB_DESTROY_NOTIFY &&
           reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == window;
}

} // namespace

std::optional<XscreensaverDaemon::Found> XscreensaverDaemon::find(const QByteArray& display)
{
    auto connection = openX(display);
    if (!connection) return {};
    auto* const server = connection.get();
    const xcb_atom_t mark = atomOf(connection, markName);
    if (mark == XCB_ATOM_NONE) return {}; // no program has ever said that word
    const auto window = firstMarked(server, mark, childrenOf(server, rootOf(connection)));
    if (!window) return {};
    constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto listening = xcb_change_window_attributes_checked(server, *window, XCB_CW_EVENT_MASK, &events);
    if (xReply(xcb_request_check(server, listening))) return {}; // it has just ended
    return Found{std::move(connection), *window};
}

XscreensaverDaemon::XscreensaverDaemon(Found found, std::function<void()> onEnd)
    : m_onEnd(std::move(onEnd))
    , m_events(std::move(found.connection), {[this, window = found.window](const auto& event) {
                                                 if (isEndOf(window, event)) end();
                                             },
                                             [this] { end(); }})
{
}

void XscreensaverDaemon::end()
{
    const auto onEnd = std::exchange(m_onEnd, {});
    if (onEnd) onEnd();
}

} // namespace kestro

#include "platform/display/surface/x11/RootStack.h"

#include "platform/display/surface/x11/X11Connection.h"

#include <algorithm>
#include <string_view>

namespace kestro {

namespace {

using TreePtr = ReplyPtr<xcb_query_tree_reply_t>;

TreePtr treeOf(xcb_connection_t* connection, xcb_window_t window)
{
    return {xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr), &std::free};
}

std::vector<xcb_window_t> childrenOf(xcb_connection_t* connection, xcb_window_t window)
{
    const TreePtr tree = treeOf(connection, window);
    if (!tree) return {};
    const xcb_window_t* const first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

/// The windows whose number says that no client made them.
bool isServerWindow(xcb_connection_t* connection, xcb_window_t window)
{
    return (window & ~xcb_get_setup(connection)->resource_id_mask) == 0;
}

std::optional<xcb_atom_t> atomOfManaged(xcb_connection_t* connection)
{
    constexpr std::string_view name = "WM_STATE"; // on every window that a window manager looks after
    const auto cookie = xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(name.size()), name.data());
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr),
                                                  &std::free);
    return reply && reply->atom != XCB_ATOM_NONE ? std::optional(reply->atom) : std::nullopt;
}

bool hasProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property)
{
    const auto cookie = xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, 0);
    const ReplyPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection, cookie, nullptr),
                                                   &std::free);
    return reply && reply->type != XCB_ATOM_NONE;
}

/// Whether a window manager looks after the window or one that it is the frame of: some frames are as little
/// managed themselves as a locker's window.
bool isFrame(xcb_connection_t* connection, xcb_window_t window)
{
    const auto managed = atomOfManaged(connection);
    if (!managed) return false;
    std::vector<xcb_window_t> level{window};
    for (int depth = 0; depth < 3; ++depth) {
        std::vector<xcb_window_t> below;
        for (const xcb_window_t each : level) {
            if (hasProperty(connection, each, *managed)) return true;
            const auto children = childrenOf(connection, each);
            below.insert(below.end(), children.begin(), children.end());
        }
        level = std::move(below);
    }
    return false;
}

} // namespace

bool isOwnWindow(xcb_connection_t* connection, std::uint32_t window)
{
    const xcb_setup_t* const setup = xcb_get_setup(connection);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

RootStack RootStack::read(xcb_connection_t* connection)
{
    RootStack stack(connection);
    stack.readEntries();
    return stack;
}

// All is asked before the first answer is waited for.
void RootStack::readEntries()
{
    const auto windows = childrenOf(m_connection, rootWindow().value_or(XCB_WINDOW_NONE));
    std::vector<xcb_get_window_attributes_cookie_t> attributes;
    std::vector<xcb_get_geometry_cookie_t> places;
    for (const xcb_window_t window : windows) {
        attributes.push_back(xcb_get_window_attributes(m_connection, window));
        places.push_back(xcb_get_geometry(m_connection, window));
    }
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const ReplyPtr<xcb_get_window_attributes_reply_t> kind(
            xcb_get_window_attributes_reply(m_connection, attributes[i], nullptr), &std::free);
        const ReplyPtr<xcb_get_geometry_reply_t> place(
            xcb_get_geometry_reply(m_connection, places[i], nullptr), &std::free);
        if (!kind || !place) continue; // it has gone meanwhile
        m_entries.push_back({windows[i],
                             {place->x, place->y, place->width + 2 * place->border_width,
                              place->height + 2 * place->border_width},
                             kind->map_state == XCB_MAP_STATE_VIEWABLE,
                             kind->override_redirect != 0,
                             kind->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT,
                             isOwnWindow(m_connection, windows[i]),
                             isServerWindow(m_connection, windows[i])});
    }
}

std::vector<QRect> RootStack::pictures() const
{
    std::vector<QRect> places;
    for (const Entry& entry : m_entries)
        if (entry.isOurs && entry.isShown && entry.hasPicture) places.push_back(entry.place);
    return places;
}

bool RootStack::mayLock(const Entry& entry, const std::vector<QRect>& pictures) const
{
    if (entry.isOurs || entry.isServers || !entry.isShown || !entry.isUnmanaged) return false;
    const bool isCover = std::any_of(pictures.begin(), pictures.end(),
                                     [&](const QRect& picture) { return entry.place.contains(picture); });
    return isCover && !isFrame(m_connection, entry.window);
}

std::uint32_t RootStack::highestAbove(std::uint32_t ours) const
{
    std::uint32_t highest = 0;
    for (auto entry = m_entries.rbegin(); entry != m_entries.rend() && entry->window != ours; ++entry)
        if (highest == 0 && entry->isShown && !entry->isOurs && !entry->isServers) highest = entry->window;
    return highest;
}

std::uint32_t RootStack::locker() const
{
    std::vector<QRect> below;
    for (const Entry& entry : m_entries) {
        if (entry.isOurs && entry.isShown && entry.hasPicture) below.push_back(entry.place);
        if (mayLock(entry, below)) return entry.window;
    }
    return 0;
}

bool RootStack::isOfLocker(std::uint32_t window) const
{
    for (TreePtr tree = treeOf(m_connection, window); tree && tree->parent != tree->root;
         tree = treeOf(m_connection, window)) {
        if (tree->parent == XCB_WINDOW_NONE) return false; // the root itself
        window = tree->parent;
    }
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [window](const Entry& entry) { return entry.window == window; });
    return found != m_entries.end() && (found->isServers || mayLock(*found, pictures()));
}

} // namespace kestro

#include "platform/display/desktop/x11/PressedKey.h"

#include "platform/display/surface/KeySymbols.h"
#include "platform/display/surface/x11/X11Connection.h"

#include <optional>
#include <xcb/xcb.h>

namespace kestro {

namespace {

constexpr unsigned others = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4 | XCB_MOD_MASK_5;
/// Where the layout in use stands in what the server says is held, and how many symbols one has for a key.
constexpr unsigned layoutShift = 13;
constexpr unsigned layoutMask = 3;
constexpr unsigned symbolsOfLayout = 2;

std::optional<unsigned> held(xcb_connection_t* connection)
{
    const auto cookie = xcb_query_pointer(connection, rootWindow().value_or(XCB_WINDOW_NONE));
    const ReplyPtr<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(connection, cookie, nullptr),
                                                      &std::free);
    return pointer ? std::optional<unsigned>(pointer->mask) : std::nullopt;
}

/// 0 where the key has none there.
std::uint32_t symbolOf(xcb_connection_t* connection, std::uint32_t code, unsigned layout)
{
    const auto cookie = xcb_get_keyboard_mapping(connection, static_cast<xcb_keycode_t>(code), 1);
    const ReplyPtr<xcb_get_keyboard_mapping_reply_t> map(
        xcb_get_keyboard_mapping_reply(connection, cookie, nullptr), &std::free);
    const unsigned place = layout * symbolsOfLayout;
    if (!map || place >= map->keysyms_per_keycode) return 0;
    return xcb_get_keyboard_mapping_keysyms(map.get())[place];
}

} // namespace

InputEvent::Key pressedKey(xcb_connection_t* connection, std::uint32_t code)
{
    const auto mask = held(connection);
    if (!mask || (*mask & others) != 0) return InputEvent::Key::Other;
    const unsigned layout = *mask >> layoutShift & layoutMask;
    const std::uint32_t symbol = symbolOf(connection, code, layout);
    return keyOfSymbol(symbol != 0 ? symbol : symbolOf(connection, code, 0), code);
}

} // namespace kestro

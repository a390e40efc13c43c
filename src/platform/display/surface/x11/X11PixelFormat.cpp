#include "platform/display/surface/x11/X11PixelFormat.h"

#include <functional>

namespace kestro {

namespace {

using Seen = std::function<bool(const xcb_visualtype_t&, std::uint8_t depth)>;

/// Whether one of the server's visuals answers the question.
bool anyVisual(const xcb_setup_t* setup, const Seen& isIt)
{
    for (auto root = xcb_setup_roots_iterator(setup); root.rem > 0; xcb_screen_next(&root))
        for (auto depth = xcb_screen_allowed_depths_iterator(root.data); depth.rem > 0;
             xcb_depth_next(&depth))
            for (auto type = xcb_depth_visuals_iterator(depth.data); type.rem > 0; xcb_visualtype_next(&type))
                if (isIt(*type.data, depth.data->depth)) return true;
    return false;
}

} // namespace

bool hasOurFormat(const xcb_setup_t* setup)
{
    const bool isOurOrder = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0; xcb_format_next(&format))
        if (format.data->depth == plainDepth) return isOurOrder && format.data->bits_per_pixel == 32;
    return false;
}

bool isBlueFirst(const xcb_setup_t* setup, xcb_visualid_t visual)
{
    return anyVisual(setup, [visual](const xcb_visualtype_t& type, std::uint8_t) {
        return type.visual_id == visual && type.red_mask == 0xff0000U;
    });
}

std::uint8_t depthOf(const xcb_setup_t* setup, xcb_visualid_t visual)
{
    std::uint8_t found = 0;
    static_cast<void>(anyVisual(setup, [&](const xcb_visualtype_t& type, std::uint8_t depth) {
        if (type.visual_id != visual) return false;
        found = depth;
        return true;
    }));
    return found;
}

} // namespace kestro

#include "platform/display/gl/OpenGLVisual.h"

#include "platform/display/surface/x11/X11Connection.h"
#include "platform/display/surface/x11/X11PixelFormat.h"

#include <algorithm>
#include <cstddef>
#include <vector>
#include <xcb/glx.h>

namespace kestro {

namespace {

// What the server tells of a visual begins with these numbers, in this order (GLX protocol,
// GetVisualConfigs).
enum Property : std::size_t {
    VisualId = 0,
    IsRgba = 2,
    RedBits = 3,
    GreenBits = 4,
    BlueBits = 5,
    IsDoubleBuffered = 11,
    DepthBits = 14,
    StencilBits = 15,
    FirstPair = 18 ///< from here on a name, then its value
};
constexpr std::uint32_t samplesName = 100001; // GLX_SAMPLES
constexpr std::uint32_t caveatName = 0x20;    // GLX_VISUAL_CAVEAT_EXT
constexpr std::uint32_t noCaveat = 0x8000;    // GLX_NONE_EXT

struct Config {
    const std::uint32_t* properties;
    std::size_t count;

    [[nodiscard]] std::uint32_t at(std::size_t place) const { return place < count ? properties[place] : 0; }
    [[nodiscard]] std::uint32_t named(std::uint32_t name, std::uint32_t otherwise) const
    {
        for (std::size_t place = FirstPair; place + 1 < count; place += 2)
            if (properties[place] == name) return properties[place + 1];
        return otherwise;
    }
};

bool isSuited(const Config& config)
{
    constexpr std::uint32_t leastDepthBits = 16;
    return config.at(IsRgba) != 0 && config.at(RedBits) >= 8 && config.at(GreenBits) >= 8 &&
           config.at(BlueBits) >= 8 && config.at(IsDoubleBuffered) != 0 &&
           config.at(DepthBits) >= leastDepthBits && config.named(samplesName, 0) == 0 &&
           config.named(caveatName, noCaveat) == noCaveat;
}

/// More is better: a stencil, then depth.
std::uint32_t worthOf(const Config& config)
{
    constexpr std::uint32_t more = 100;
    return (config.at(StencilBits) > 0 ? more : 0) + std::min(config.at(DepthBits), more - 1);
}

using Reply = ReplyPtr<xcb_glx_get_visual_configs_reply_t>;

Reply ask(xcb_connection_t* connection, int screenNumber)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_glx_id);
    if (!extension || !extension->present) return {nullptr, &std::free};
    const auto cookie = xcb_glx_get_visual_configs(connection, static_cast<std::uint32_t>(screenNumber));
    return {xcb_glx_get_visual_configs_reply(connection, cookie, nullptr), &std::free};
}

std::vector<Config> configsIn(const Reply& reply)
{
    const std::size_t each = reply->num_properties;
    const auto all = static_cast<std::size_t>(xcb_glx_get_visual_configs_property_list_length(reply.get()));
    const std::uint32_t* const numbers = xcb_glx_get_visual_configs_property_list(reply.get());
    std::vector<Config> configs;
    for (std::size_t start = 0; each > 0 && start + each <= all; start += each)
        configs.push_back({numbers + start, each});
    return configs;
}

} // namespace

std::optional<std::uint32_t> openGLVisual(xcb_connection_t* connection, const xcb_screen_t& screen,
                                          int screenNumber)
{
    const Reply reply = ask(connection, screenNumber);
    if (!reply) return {};
    const xcb_setup_t* const setup = xcb_get_setup(connection);
    const Config* best = nullptr;
    const std::vector<Config> configs = configsIn(reply);
    for (const Config& config : configs) {
        const std::uint32_t visual = config.at(VisualId);
        if (!isSuited(config) || depthOf(setup, visual) != plainDepth || !isBlueFirst(setup, visual))
            continue;
        if (visual == screen.root_visual) return visual;
        if (!best || worthOf(config) > worthOf(*best)) best = &config;
    }
    return best ? std::optional(best->at(VisualId)) : std::nullopt;
}

} // namespace kestro

#include "platform/movie/MpvLight.h"

#include <mpv/client.h>
#include <string_view>

namespace kestro {

/// Null when it is not there.
static const mpv_node* entryOf(const mpv_node& map, std::string_view key)
{
    if (map.format != MPV_FORMAT_NODE_MAP) return nullptr;
    for (int i = 0; i < map.u.list->num; ++i) {
        if (key == map.u.list->keys[i]) return &map.u.list->values[i];
    }
    return nullptr;
}

static std::string_view textOf(const mpv_node& map, std::string_view key)
{
    const mpv_node* const entry = entryOf(map, key);
    return entry && entry->format == MPV_FORMAT_STRING ? entry->u.string : "";
}

static int numberOf(const mpv_node& map, std::string_view key)
{
    const mpv_node* const entry = entryOf(map, key);
    return entry && entry->format == MPV_FORMAT_INT64 ? static_cast<int>(entry->u.int64) : 0;
}

static MovieLight::Curve curveOf(std::string_view name)
{
    if (name == "pq") return MovieLight::Curve::Pq;
    return name == "hlg" ? MovieLight::Curve::Hlg : MovieLight::Curve::Plain;
}

static MovieLight::Gamut gamutOf(std::string_view name)
{
    if (name == "bt.2020") return MovieLight::Gamut::Bt2020;
    return name == "display-p3" ? MovieLight::Gamut::P3 : MovieLight::Gamut::Screen;
}

MovieLight lightOf(const mpv_node& params)
{
    MovieLight light{.curve = curveOf(textOf(params, "gamma")),
                     .gamut = gamutOf(textOf(params, "primaries"))};
    const mpv_node* const peak = entryOf(params, "sig-peak"); // 1 is paper
    if (peak && peak->format == MPV_FORMAT_DOUBLE)
        light.peak = peakOf(peak->u.double_ * MovieLight::paperWhite);
    return light;
}

QSize frameSizeOf(const mpv_node& params)
{
    return {numberOf(params, "w"), numberOf(params, "h")};
}

} // namespace kestro

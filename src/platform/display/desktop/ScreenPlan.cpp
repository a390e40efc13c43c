#include "platform/display/desktop/ScreenPlan.h"

#include "platform/display/scene/ScreenMapping.h"
#include "platform/display/view/PixelRect.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kestro {

namespace {

using Monitors = std::vector<ScreenPlan::Monitor>;
using Places = std::vector<std::size_t>; ///< in the list of monitors

Places chosenByName(const QStringList& names, const Monitors& monitors)
{
    Places chosen;
    for (std::size_t place = 0; place < monitors.size(); ++place)
        if (names.contains(monitors[place].name)) chosen.push_back(place);
    return chosen;
}

Places chosenOf(const MonitorChoice& choice, const Monitors& monitors)
{
    Places chosen(monitors.size());
    std::iota(chosen.begin(), chosen.end(), 0);
    if (choice.kind == MonitorChoice::Kind::First && !chosen.empty()) chosen.resize(1);
    if (choice.kind != MonitorChoice::Kind::Named) return chosen;
    const Places named = chosenByName(choice.names, monitors);
    return named.empty() ? chosen : named;
}

QStringList missingOf(const MonitorChoice& choice, const Monitors& monitors)
{
    QStringList missing = choice.names;
    for (const ScreenPlan::Monitor& monitor : monitors)
        missing.removeAll(monitor.name);
    return missing;
}

/// As large as there is room, in the middle.
QRect fitted(QSize picture, QSize room)
{
    QRect place({0, 0}, picture.scaled(room, Qt::KeepAspectRatio));
    place.moveTopLeft({(room.width() - place.width()) / 2, (room.height() - place.height()) / 2});
    return place;
}

/// The picture of the first of them, on all.
ScreenPlan::Picture mirrored(const Places& chosen, const Monitors& monitors)
{
    const ScreenPlan::Monitor& first = monitors[chosen.front()];
    ScreenPlan::Picture picture{first.frame, first.pixels, first.ratio, {}};
    for (const std::size_t each : chosen)
        picture.parts.push_back({each, fitted(first.pixels, monitors[each].pixels)});
    return picture;
}

QRect placeOn(const ScreenPlan::Monitor& monitor, const ScreenPlan::Picture& picture)
{
    const ScreenMapping mapping{monitor.frame, monitor.pixels, monitor.ratio};
    QRect place = mapping.pixelRect(picture.frame);
    // Pixel for pixel where it can be: at a broken ratio the edges may come out one off.
    if (monitor.ratio == picture.ratio) place.setSize(picture.pixels);
    return place;
}

/// One picture across them all, as fine as the finest.
ScreenPlan::Picture spanned(const Places& chosen, const Monitors& monitors)
{
    ScreenPlan::Picture picture;
    double ratio = 0;
    for (const std::size_t each : chosen) {
        picture.frame = unionRect(picture.frame, monitors[each].frame);
        ratio = std::max(ratio, monitors[each].ratio);
    }
    const Size size = picture.frame.size;
    picture.ratio = std::min(ratio, std::sqrt(ScreenPlan::mostPixels / (double{size.width} * size.height)));
    picture.pixels = {pixelEdge(size.width * picture.ratio), pixelEdge(size.height * picture.ratio)};
    for (const std::size_t each : chosen)
        picture.parts.push_back({each, placeOn(monitors[each], picture)});
    return picture;
}

std::vector<ScreenPlan::Picture> picturesOf(ScreensMode mode, const Places& chosen, const Monitors& monitors)
{
    if (chosen.empty()) return {};
    if (mode == ScreensMode::Mirror) return {mirrored(chosen, monitors)};
    if (mode == ScreensMode::Span && chosen.size() > 1) return {spanned(chosen, monitors)};
    std::vector<ScreenPlan::Picture> each;
    for (const std::size_t place : chosen)
        each.push_back(mirrored({place}, monitors));
    return each;
}

} // namespace

ScreenPlan ScreenPlan::of(const ScreenChoice& choice, const std::vector<Monitor>& monitors)
{
    const Places chosen = chosenOf(choice.monitors, monitors);
    return {picturesOf(choice.mode, chosen, monitors), missingOf(choice.monitors, monitors)};
}

} // namespace kestro

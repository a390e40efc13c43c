#include "engine/MovieGeometry.h"

#include "platform/base/Log.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Window.h"
#include "platform/saver/ScreenSaverFunctions.h"
#include "platform/saver/ScreenSaverView.h"
#include "presentation/MovieFrame.h"
#include "settings/Settings.h"

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

Size scaledUp(Size size, float scale)
{
    return {std::ceil(size.width * scale), std::ceil(size.height * scale)};
}

} // namespace

MovieGeometry::MovieGeometry(const ScreenSaverView& saver, const Settings& settings, Random& random)
    : m_saver(saver)
    , m_settings(settings)
    , m_random(random)
{
}

Size MovieGeometry::clientSizeFromSSBaseSize(float scale, Size base) const
{
    const Size view = m_saver.frame().size;
    const float rx = view.width / base.width;
    const float ry = view.height / base.height;
    const Size fitted = rx > ry ? Size{base.width * ry, view.height} : Size{view.width, base.height * rx};
    return scaledUp(fitted, scale);
}

Size MovieGeometry::bigClientSizeFromSSBaseSize(float scale, Size base) const
{
    const Size view = m_saver.frame().size;
    const float rx = view.width / base.width;
    const float ry = view.height / base.height;
    const Size covering = rx > ry ? Size{view.width, base.height * rx} : Size{base.width * ry, view.height};
    return scaledUp(covering, scale);
}

Size MovieGeometry::movieSizeFromSS(const MovieFrame& frame, float scale) const
{
    const Size natural = frame.sizeWithScale(scale);
    return natural.isEmpty() ? Size{} : clientSizeFromSSBaseSize(scale, natural);
}

Size MovieGeometry::bigMmovieSizeFromSS(const MovieFrame& frame, float scale) const
{
    const Size natural = frame.sizeWithScale(scale);
    return natural.isEmpty() ? Size{} : bigClientSizeFromSSBaseSize(scale, natural);
}

Size MovieGeometry::movieSizeForFlyMode(const MovieFrame& frame, float scale) const
{
    const Size view = m_saver.frame().size;
    const Size natural = frame.sizeWithScale(scale);
    if (natural.isEmpty()) return {};

    float factor = scale;
    if (m_saver.isPreview()) {
        const Size screen = monitorSize();
        factor = scale * std::min(view.width / screen.width, view.height / screen.height);
    }
    Size size{natural.width * factor, natural.height * factor};
    if (size.width > view.width) size = {view.width, view.width / size.width * size.height};
    if (size.height > view.height) size = {view.height / size.height * size.width, view.height};
    return scaledUp(size, 1.0F);
}

Point MovieGeometry::randomPositionWithSizeFromScreen(Size size, bool fromScreen) const
{
    const Rect area = fromScreen ? screenFrame() : m_saver.bounds();
    const int dx = static_cast<int>(area.size.width - size.width);
    const int dy = static_cast<int>(area.size.height - size.height);
    const float x = area.origin.x + static_cast<float>(SSRandomIntBetween(m_random, 0, dx));
    const float y = area.origin.y + static_cast<float>(SSRandomIntBetween(m_random, 0, dy));
    return {x, y};
}

Point MovieGeometry::randomPositionWithSize(Size size) const
{
    return randomPositionWithSizeFromScreen(size, false);
}

Rect MovieGeometry::screenFrame() const
{
    const auto* window = m_saver.window();
    const auto* screen = window ? window->screen() : nullptr;
    return screen ? screen->frame() : m_saver.frame();
}

Size MovieGeometry::monitorSize() const
{
    const auto* window = m_saver.window();
    const auto* screen = window ? window->screen() : nullptr;
    return screen ? screen->monitorSize() : m_saver.frame().size;
}

Rect MovieGeometry::placeFor(const MovieFrame& frame, bool windowMode) const
{
    if (m_settings.isDynamicMode()) return movingPlaceFor(frame, windowMode);
    switch (m_settings.playMode()) {
    case PlayModeStretched:
        return {{0, 0}, m_saver.frame().size};
    case PlayModeEnlarged:
        return centred(bigMmovieSizeFromSS(frame, 1.0F));
    default:
        logLine(QStringLiteral("fullscreen 0 selected"));
        return centred(movieSizeFromSS(frame, 1.0F));
    }
}

Rect MovieGeometry::movingPlaceFor(const MovieFrame& frame, bool windowMode) const
{
    const Size size = movieSizeForFlyMode(frame, m_settings.scaleFactor());
    if (size.isEmpty()) return {{0, 0}, size};
    return {randomPositionWithSizeFromScreen(size, !m_saver.isPreview() && windowMode), size};
}

Rect MovieGeometry::centred(Size size) const
{
    return size.isEmpty() ? Rect{{0, 0}, size} : SSCenteredRectInRect({{0, 0}, size}, m_saver.frame());
}

} // namespace kestro

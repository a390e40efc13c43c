#pragma once

#include "platform/display/view/Geometry.h"

namespace kestro {

class MovieFrame;
class Random;
class ScreenSaverView;
class Settings;

/// How large a movie is shown, and where: fitted, stretched or enlarged over the view, or scaled at a random
/// place. Sizes are points. Reads the saver view's frame and its window's screen anew each time. Main thread.
class MovieGeometry final {
public:
    MovieGeometry(const ScreenSaverView& saver, const Settings& settings, Random& random);

    /// `base` fitted inside the view, times `scale`, rounded up.
    [[nodiscard]] Size clientSizeFromSSBaseSize(float scale, Size base) const;
    /// `base` covering the view, times `scale`, rounded up.
    [[nodiscard]] Size bigClientSizeFromSSBaseSize(float scale, Size base) const;
    /// The natural size of `frame`'s content through either of the two; zero while that is unknown.
    [[nodiscard]] Size movieSizeFromSS(const MovieFrame& frame, float scale) const;
    [[nodiscard]] Size bigMmovieSizeFromSS(const MovieFrame& frame, float scale) const;
    /// The size of a movie that moves about: in a preview as it would be on the screen, never larger than the
    /// view; zero while the natural size is unknown.
    [[nodiscard]] Size movieSizeForFlyMode(const MovieFrame& frame, float scale) const;

    /// A random place for something of that size: on the whole screen (in coordinates of the desk), or in the
    /// view. A size larger than the area gives a place partly off it.
    [[nodiscard]] Point randomPositionWithSizeFromScreen(Size size, bool fromScreen) const;
    [[nodiscard]] Point randomPositionWithSize(Size size) const;

    /// Where `frame` belongs by the settings: on the desk in window mode, else in the view. At (0, 0) with no
    /// size while the natural size is unknown.
    [[nodiscard]] Rect placeFor(const MovieFrame& frame, bool windowMode) const;

    /// The frame of the screen that the saver's window is on; the view's own where it has none.
    [[nodiscard]] Rect screenFrame() const;

private:
    [[nodiscard]] Rect movingPlaceFor(const MovieFrame& frame, bool windowMode) const;
    [[nodiscard]] Rect centred(Size size) const;
    /// The size of the monitor that the saver's window is on.
    [[nodiscard]] Size monitorSize() const;

    const ScreenSaverView& m_saver;
    const Settings& m_settings;
    Random& m_random;
};

} // namespace kestro

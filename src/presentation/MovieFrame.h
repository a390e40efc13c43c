#pragma once

#include "platform/display/view/Geometry.h"
#include "platform/display/view/Picture.h"
#include "presentation/MovieContent.h"

#include <memory>

namespace kestro {

class View;

/// What happens at the end of a movie. Any other number counts as Normal.
namespace LoopMode {
inline constexpr int Normal = 0;       ///< play once and stop
inline constexpr int Looping = 1;      ///< start again from the beginning
inline constexpr int BackAndForth = 2; ///< play backwards to the beginning, and so on
} // namespace LoopMode

/// The playback operations that a movie in a view and a movie in a window of its own answer alike. The engine
/// holds one of either and never looks behind it. Nothing here reports a failure: what cannot be done is left
/// undone. Main thread.
class MovieFrame {
public:
    virtual ~MovieFrame() = default;

    /// Takes the old content away, then shows the new one.
    virtual void setMovie(const MovieContent& content) = 0;
    /// The movie shown; null while empty and for web content.
    [[nodiscard]] virtual std::shared_ptr<QTMovie> movie() const = 0;
    /// The area that the movie occupies inside; all of the frame where there is no movie.
    [[nodiscard]] virtual Rect movieRect() const = 0;

    /// Plays on, with the settings given so far. Web content is left alone, unless it was let go of: then it
    /// begins anew.
    virtual void start(const void* sender) = 0;
    /// Stops the movie where it is.
    virtual void stop(const void* sender) = 0;
    /// Stops the content, and gives back all that playing and showing it take. A movie stays where it is.
    virtual void letGo() = 0;
    /// What the content shows now, `size` large, with so many pixels a point; null where it shows nothing.
    [[nodiscard]] virtual Picture picture(Size size, double pixelRatio) const = 0;
    /// Whether the movie plays or has yet to begin; true while empty and for web content, which never end.
    [[nodiscard]] virtual bool isPlaying() const = 0;
    /// To be called at each tick: starts a movie that has yet to begin, once its duration is known. From when
    /// it was seen running here, one that stands counts as ended.
    virtual void keepPlaying() = 0;

    /// 0 silent … 1 as recorded. These settings outlive the content they were given for.
    virtual void setVolume(float volume) = 0;
    [[nodiscard]] virtual float volume() const = 0;
    virtual void setMuted(bool muted) = 0;
    [[nodiscard]] virtual bool isMuted() const = 0;
    /// One of LoopMode.
    virtual void setLoopMode(int mode) = 0;
    virtual void showControllerAdjustingSize(bool show, bool adjustSize) = 0;

    /// The natural size of the content in points, zero while unknown. `scale` counts for web content only,
    /// which has a quarter of the main screen times the scale.
    [[nodiscard]] virtual Size sizeWithScale(float scale) const = 0;

    /// Puts the frame on show: on `saver`, or in front of what is on its screen where it is a window.
    virtual void show(View& saver) = 0;
    /// Takes it from sight.
    virtual void hide() = 0;
    /// Moves and sizes the frame: in the saver's view, or on the desk where it is a window.
    virtual void place(const Rect& rect) = 0;
    /// The part of the desk that the frame covers, whatever lies below it; empty where it is part of the
    /// saver's view, and while it shows nothing.
    [[nodiscard]] virtual Rect covered() const = 0;

    /// Where the frame stands: in the saver's view, or on the desk where it is a window.
    [[nodiscard]] virtual Rect frame() const = 0;
    virtual void setFrameOrigin(Point origin) = 0;
};

} // namespace kestro

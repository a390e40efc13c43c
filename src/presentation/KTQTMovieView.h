#pragma once

#include "platform/movie/QTMovieView.h"

namespace kestro {

class NSMovie;

/// A movie view with the playback operations of the older movie view interface, whichever generation the
/// platform's view is of: an older one carries them out itself, on a newer one they work through the movie's
/// attributes. Which it is, is asked anew by each operation. Without a movie everything is left undone. Main
/// thread.
class KTQTMovieView final : public QTMovieView {
public:
    using QTMovieView::QTMovieView;

    /// From now on the view counts as playing until the movie's rate has been seen off zero once.
    void setMovie(std::shared_ptr<QTMovie> movie) override;
    /// Shows the movie inside `movie`.
    void setMovie(const NSMovie& movie);

    /// Newer generation: 1 sets the looping attribute, 2 the back-and-forth one, each leaving the other as it
    /// is; any other number clears both.
    void setLoopMode(int mode);
    /// Newer generation: hides the controller, whatever is asked.
    void showControllerAdjustingSize(bool show, bool adjustSize);

    void setMuted(bool muted);
    [[nodiscard]] bool isMuted() const;
    void setVolume(float volume);
    [[nodiscard]] float volume() const;

    [[nodiscard]] Rect movieRect() const { return movieBounds(); }
    void start(const void* sender) { play(sender); }
    void stop(const void* sender) { pause(sender); }

    /// Newer generation: tells a movie that has yet to begin (true, and it is started once its duration is
    /// known) from one that has stopped or ended (false).
    [[nodiscard]] bool isPlaying();
    /// Points; the magnification counts in the older generation only. Zero while unknown.
    [[nodiscard]] Size sizeForMagnification(float magnification) const;

private:
    bool m_resetFlag = false;
};

} // namespace kestro

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

    /// From now on the view counts as playing until keepPlaying() has seen the movie's rate off zero once.
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

    /// Newer generation: true for a movie that plays or has yet to begin, false for one that has stopped or
    /// ended, as far as keepPlaying() has seen it.
    [[nodiscard]] bool isPlaying() const;
    /// To be called again and again: sees whether the movie has begun, and starts it where it has not, once
    /// its duration is known. Nothing in the older generation.
    void keepPlaying();
    /// Points; the magnification counts in the older generation only. Zero while unknown.
    [[nodiscard]] Size sizeForMagnification(float magnification) const;

private:
    void noteRate();

    bool m_resetFlag = false; ///< the movie has not been seen running since it was set
};

} // namespace kestro

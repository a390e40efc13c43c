#pragma once

#include "platform/display/view/View.h"

#include <memory>

namespace kestro {

class QTMovie;

/// What a movie view of the older generation carries itself, beside the movie it shows. Main thread.
class NSMovieView {
public:
    virtual ~NSMovieView() = default;

    virtual void setLoopMode(int mode) = 0;
    virtual void showControllerAdjustingSize(bool show, bool adjustSize) = 0;
    [[nodiscard]] virtual bool isPlaying() const = 0;
    [[nodiscard]] virtual Size sizeForMagnification(float magnification) const = 0;
};

/// The platform's movie view: shows one movie over its whole bounds. A view of the older generation is also a
/// kind of NSMovieView; this machine's are of the newer one, so that part is only there when it was handed
/// in. Main thread.
class QTMovieView : public View {
public:
    /// `older` makes it a view of the older generation; null for one of the newer.
    explicit QTMovieView(const Rect& frame, std::unique_ptr<NSMovieView> older = nullptr);
    ~QTMovieView() override;

    /// The older generation's part, or null: the test which generation this view is of.
    [[nodiscard]] NSMovieView* asNSMovieView() const { return m_older.get(); }

    /// Shows `movie` from now on; null shows nothing. The movie before is let go of, as it stands.
    virtual void setMovie(std::shared_ptr<QTMovie> movie);
    [[nodiscard]] const std::shared_ptr<QTMovie>& movie() const { return m_movie; }

    /// The area that the movie occupies inside the view.
    [[nodiscard]] Rect movieBounds() const { return bounds(); }

    void play(const void* sender);
    /// Stops the movie where it is.
    void pause(const void* sender);

    /// A controller bar is never drawn over a screen saver's movie; the wish is kept and answered.
    void setControllerVisible(bool visible) { m_controllerVisible = visible; }
    [[nodiscard]] bool isControllerVisible() const { return m_controllerVisible; }

private:
    std::unique_ptr<NSMovieView> m_older;
    std::shared_ptr<QTMovie> m_movie;
    bool m_controllerVisible = false;
};

} // namespace kestro

#pragma once

#include "platform/display/Geometry.h"
#include "presentation/KTMovieView.h"

#include <memory>

namespace kestro {

class MovieFrame;
class View;

/// Where a saver's movie frame stands: on the saver's view, or on the desk in a window of its own. Which of
/// the two is settled when the saver is made; a frame belongs to the stage that created it. Owned by the
/// engine. Main thread.
class MovieStage {
public:
    virtual ~MovieStage() = default;

    /// A new frame, not yet shown; owned by the caller. Null where there is no screen to put a window on.
    [[nodiscard]] virtual std::unique_ptr<MovieFrame> createMovieFrame(const Rect& rect) = 0;
    /// Shows the frame, or takes it from sight.
    virtual void addMovieFrame(MovieFrame& frame) = 0;
    virtual void removeMovieFrame(MovieFrame& frame) = 0;
    /// Moves and sizes the frame: in the view's coordinates, or the desk's for a window.
    virtual void setMovieFrame(MovieFrame& frame, const Rect& rect) = 0;
    /// The part of the desk that the frame covers, whatever lies below it; empty where it is part of the
    /// saver's view, and while it shows nothing.
    [[nodiscard]] virtual Rect coveredBy(const MovieFrame& frame) const = 0;
};

/// The movie is a view on the saver's view.
class ViewStage final : public MovieStage {
public:
    ViewStage(View& saver, const MovieFramePlatform& platform);

    [[nodiscard]] std::unique_ptr<MovieFrame> createMovieFrame(const Rect& rect) override;
    void addMovieFrame(MovieFrame& frame) override;
    void removeMovieFrame(MovieFrame& frame) override;
    void setMovieFrame(MovieFrame& frame, const Rect& rect) override;
    [[nodiscard]] Rect coveredBy(const MovieFrame& frame) const override;

private:
    View& m_saver;
    MovieFramePlatform m_platform;
};

/// The movie is a window on the screen of the saver's window.
class WindowStage final : public MovieStage {
public:
    WindowStage(View& saver, const MovieFramePlatform& platform);

    [[nodiscard]] std::unique_ptr<MovieFrame> createMovieFrame(const Rect& rect) override;
    void addMovieFrame(MovieFrame& frame) override;
    void removeMovieFrame(MovieFrame& frame) override;
    void setMovieFrame(MovieFrame& frame, const Rect& rect) override;
    [[nodiscard]] Rect coveredBy(const MovieFrame& frame) const override;

private:
    View& m_saver;
    MovieFramePlatform m_platform;
};

} // namespace kestro

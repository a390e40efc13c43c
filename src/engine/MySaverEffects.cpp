// What the saver leaves behind of its movies: the trail of a window and the picture that fades.

#include "engine/MySaver.h"
#include "platform/display/Window.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

namespace kestro {

void MySaver::markTrail()
{
    for (const Rect& place : m_trail.changing())
        setNeedsDisplayInRect(place);
}

bool MySaver::hasEffects() const
{
    return !isPreview() && m_settings.fadeoutEffect();
}

Point MySaver::placeInView() const
{
    const Point frame = m_movieView->frame().origin;
    const Point screen = m_geometry.screenFrame().origin;
    return {frame.x - screen.x, frame.y - screen.y};
}

AfterImageTrail::Capture MySaver::captureAt(Point place) const
{
    const auto movie = m_movieView->movie();
    return {movie ? m_sequencer.cacheMovie() : nullptr, movie ? GetMovieTime(*movie) : 0, place};
}

// The movie's picture stays behind at its place and fades there, while the movie goes elsewhere.
void MySaver::afterImageEffect()
{
    if (!m_fadeOut.isReady()) return;
    const auto capture = captureAt({});
    const Rect place = m_movieView->frame().movedBy(m_geometry.screenFrame().origin);
    m_fadeOut.leaveBehind(movieImage(capture.copy.get(), capture.time), place);
}

// The last still of a movie that is about to be replaced. Its place is the window's on the desk, taken as it
// is.
void MySaver::queueImageNoThread()
{
    if (!m_trail.queueImageNoThread(captureAt(m_movieView->frame().origin))) return;
    display();
    if (window()) window()->flushWindow();
}

} // namespace kestro

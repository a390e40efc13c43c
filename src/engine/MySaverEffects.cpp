// What the saver leaves behind of its movies: the trail of a window and the picture that fades.

#include "engine/MySaver.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Window.h"
#include "platform/movie/Playhead.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"
#include "presentation/MovieFrame.h"

#include <cmath>
#include <limits>

namespace kestro {

namespace {

constexpr double never = std::numeric_limits<double>::infinity();
/// Of a tick: what adding up many of them may be off by.
constexpr double roundingSlack = 1e-6;

EndMode endModeOf(const QTMovie& movie)
{
    if (movie.attribute(MovieAttribute::LoopsBackAndForth)) return EndMode::Turn;
    return movie.attribute(MovieAttribute::Loops) ? EndMode::Loop : EndMode::Stop;
}

/// Seconds until the movie stands at its end; never, where it does not come to stand there.
double secondsToEnd(const QTMovie& movie)
{
    const double duration = secondsFromMovieTime(movie.duration());
    if (endModeOf(movie) != EndMode::Stop || movie.rate() <= 0 || duration <= 0) return never;
    return duration - secondsFromMovieTime(movie.currentTime());
}

} // namespace

void MySaver::markTrail()
{
    for (const Rect& place : m_trail.changing())
        setNeedsDisplayInRect(place);
}

// All of a new still but a narrow strip lies behind the window that it is a picture of.
void MySaver::markStill(const Rect& place)
{
    for (const Rect& part : subtractRect({place}, coveredByMovie()))
        setNeedsDisplayInRect(part);
}

bool MySaver::hasEffects() const
{
    return !isPreview() && m_settings.fadeoutEffect();
}

// A trail, or what fades where the movie was.
bool MySaver::leavesPictures() const
{
    return m_settings.isDynamicMode() && hasEffects();
}

// What the movie shows stays above the one that is about to take its place, until it has faded away.
void MySaver::dissolve()
{
    if (!m_dissolve.isWanted() || leavesPictures() || !window() || !window()->screen()) return;
    auto& screen = *window()->screen();
    const Rect frame = m_movieView->frame();
    const Rect place = m_windowMode ? frame : frame.movedBy(m_geometry.screenFrame().origin);
    const auto ended = m_movieView->movie();
    m_dissolve.begin(m_movieView->picture(frame.size, screen.surface().pixelRatio()), place, &screen,
                     [this, ended] {
                         const auto movie = m_movieView ? m_movieView->movie() : nullptr;
                         return movie != ended && (!movie || movie->currentTime().timeValue > 0);
                     });
}

Point MySaver::placeInView() const
{
    const Point frame = m_movieView->frame().origin;
    const Point screen = m_geometry.screenFrame().origin;
    return {frame.x - screen.x, frame.y - screen.y};
}

// The picture that the movie will show in so many seconds. There is none of web content, nor of a movie whose
// size is not known yet.
StillAhead::Moment MySaver::pictureIn(double seconds) const
{
    const auto movie = m_movieView->movie();
    if (!movie || movie->state() != QTMovie::State::Loaded || m_movieView->frame().isEmpty()) return {};
    const double duration = secondsFromMovieTime(movie->duration());
    const Playhead here{secondsFromMovieTime(movie->currentTime()), movie->rate() < 0, movie->rate() != 0};
    return {m_sequencer.cacheMovie(), here.after(seconds, duration, endModeOf(*movie)).position, duration};
}

// Asks in good time for the still of the picture that the movie will leave behind.
void MySaver::askForStillAhead()
{
    if (!hasEffects()) return;
    const double lead = m_stillAhead.lead();
    const double left = m_windowMode ? secondsToSwitch(lead) : secondsToFade();
    if (left <= lead) m_stillAhead.ask(pictureIn(left));
}

// Until it ends, or its turn does.
double MySaver::secondsLeft(const QTMovie& movie)
{
    const double toEnd = secondsToEnd(movie);
    const auto turn = m_turn.secondsLeft();
    if (!turn || m_playlist.fileList().size() < 2) return toEnd;
    const double tick = animationTimeInterval();
    return std::fmin(std::ceil(*turn / tick - roundingSlack) * tick, toEnd);
}

// Window mode: a still is left at the switch to another entry. Never, where that is further off than `most`.
double MySaver::secondsToSwitch(double most)
{
    const auto movie = m_movieView->movie();
    const double left = movie ? secondsLeft(*movie) : never;
    return left <= most && m_playlist.fileList().size() > 1 ? left : never;
}

// Until the movie goes elsewhere or ends; never, where a fade will still be running then.
double MySaver::secondsToFade()
{
    const auto movie = m_movieView->movie();
    const double toEnd = movie && m_settings.isFlyMode() ? secondsLeft(*movie) : never;
    const double left = std::fmin(secondsToFly(), toEnd);
    return m_fadeOut.secondsLeft() < left ? left : never;
}

// The first tick strictly later than the interval.
double MySaver::secondsToFly() const
{
    if (m_settings.reposition() != 0 || !m_flyTime) return never;
    const double tick = animationTimeInterval();
    const double left = *m_flyTime + m_settings.timeInterval() - m_services.desktop.clock().now();
    return (std::floor(std::fmax(left, 0) / tick + roundingSlack) + 1) * tick;
}

// Nobody could ask ahead for the still where a person has it go: what shows is taken then.
Picture MySaver::pictureLeft()
{
    if (m_steps.isAsked()) return m_movieView->picture(m_movieView->frame().size, 1);
    return m_stillAhead.take(pictureIn(0));
}

// One still at a time: while another is being taken, this one is left out.
void MySaver::queueImageThread()
{
    if (m_captures.isBusy()) return;
    const Point place = placeInView();
    const auto shown = pictureIn(0);
    if (!shown.copy) return m_trail.queueImage({}, place);
    const std::int32_t time = GetMovieTime(*m_movieView->movie());
    m_captures.start({shown.copy, time},
                     [this, place](const Picture& still) { m_trail.queueImage(still, place); });
}

// The movie's picture stays behind at its place and fades there, while the movie goes elsewhere.
void MySaver::afterImageEffect()
{
    if (!m_fadeOut.isReady()) return;
    const Rect place = m_movieView->frame().movedBy(m_geometry.screenFrame().origin);
    m_fadeOut.leaveBehind(pictureLeft(), place);
}

// The last still of a movie that is about to be replaced. Its place is the window's on the desk, taken as it
// is.
void MySaver::queueImageNoThread()
{
    if (!m_trail.queueImageNoThread(pictureLeft(), m_movieView->frame().origin)) return;
    display();
    if (window()) window()->flushWindow();
}

} // namespace kestro

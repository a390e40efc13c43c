// What the saver does at every tick: moving the movie or the sign, and taking the next entry.

#include "engine/MovieStage.h"
#include "engine/MySaver.h"
#include "platform/base/Clock.h"
#include "platform/display/Desktop.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"
#include "presentation/MovieFrame.h"

namespace kestro {

namespace {

/// Ticks between two stills of the trail, less two: the tick that takes one and the one that starts to count.
constexpr int lastStepBeforeCapture = 9;

} // namespace

void MySaver::animateOneFrame()
{
    m_piggyBack.watchForClose();
    if (m_isPicking || m_isPaused) return;
    if (!m_movieView) return moveSign();
    if (handleFailedLoading()) return;
    if (m_movieView->isPlaying()) moveMovie();
    if (m_movieView && !m_movieView->isPlaying()) switchMovie();
}

// A movie that was opened, but turned out unloadable later, counts as ended and as one that could not be
// opened. Where that went for as many movies in a row as there are entries, there is nothing to play.
bool MySaver::handleFailedLoading()
{
    const auto movie = m_movieView->movie();
    if (!movie || movie->state() == QTMovie::State::Loading) return false;
    if (movie->state() == QTMovie::State::Loaded) {
        m_failedLoads = 0;
        return false;
    }
    m_sequencer.recordFailure(movie->url());
    ++m_failedLoads;
    const int stops = m_sequencer.stops();
    const bool goesOn = m_failedLoads < m_playlist.fileList().size() && _resetMovie();
    if (m_sequencer.isStopped() || isRestarted(stops)) return true;
    if (goesOn)
        m_movieView->start(this);
    else
        fallBackToSign(signForStart());
    return true;
}

void MySaver::moveMovie()
{
    const auto movie = m_movieView->movie();
    if (m_movieView->frame().isEmpty() && movie && movie->duration().timeValue > 0) resetMovieViewFrame();
    if (!m_settings.isDynamicMode()) return;
    if (m_windowMode)
        moveMovieWindow();
    else
        flyMovie();
}

void MySaver::moveMovieWindow()
{
    if (m_stepCount > lastStepBeforeCapture) {
        if (hasEffects()) m_trail.queueImageThread(captureAt(placeInView()));
        m_stepCount = 0;
    } else {
        ++m_stepCount;
        markTrail();
    }
    m_movieView->setFrameOrigin(
        m_bounce.newRectFromScreen(m_movieView->frame(), m_geometry.screenFrame()).origin);
}

void MySaver::flyMovie()
{
    if (!isTimeToFly()) return;
    if (hasEffects()) {
        m_movieView->stop(this);
        afterImageEffect();
    }
    m_movieView->setFrameOrigin(m_geometry.randomPositionWithSize(m_movieView->frame().size));
    display();
    if (!m_movieView->isPlaying()) m_movieView->start(this);
}

bool MySaver::isTimeToFly()
{
    if (m_settings.reposition() != 0) return !m_movieView->isPlaying();
    const double now = m_services.desktop.clock().now();
    if (!(now - m_flyTime > static_cast<double>(m_settings.timeInterval()))) return false;
    m_flyTime = now;
    return true;
}

void MySaver::switchMovie()
{
    const int played = m_playlist.curIdx();
    if (hasEffects() && m_settings.isFlyMode())
        afterImageEffect();
    else if (hasEffects() && m_windowMode && m_playlist.fileList().size() > 1)
        queueImageNoThread();

    const int stops = m_sequencer.stops();
    _resetMovie();
    if (m_sequencer.isStopped() || isRestarted(stops)) return;
    if (m_playlist.curIdx() == played && !m_playlist.hasAutoTrailers())
        if (const auto mode = m_settings.loopMode(1)) m_movieView->setLoopMode(*mode);
    m_movieView->start(this);
}

void MySaver::moveSign()
{
    if (!m_sign.isShown()) return;
    const Rect old = m_sign.imgBounds();
    m_sign.setImgBounds(m_bounce.newRectFromView(old, bounds()));
    displayRectIgnoringOpacity(unionRect(old, m_sign.imgBounds()));
}

} // namespace kestro

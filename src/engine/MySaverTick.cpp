// What the saver does at every tick: moving the movie or the sign, and taking the next entry.

#include "engine/MySaver.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Desktop.h"
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
    if (m_rest.how == Rest::None || m_rest.how == Rest::Still) m_acts.tick(screen());
    if (m_rest.how == Rest::Still) return tickWhileStill();
    if (isHeldUp()) return;
    const bool hasNews = !m_search && takeNews();
    if (!m_search && !m_movieView && (hasNews || m_retries.isDue(m_services.desktop.clock().now()))) retry();
    if (m_search) return tickWhileSearching();
    if (!m_movieView) return move(m_sign);
    m_trail.age();
    if (replaceBrokenMovie()) return;
    endLoneLoopInTime();
    m_movieView->keepPlaying();
    m_turn.tick();
    if (m_movieView->isPlaying()) moveMovie();
    if (!m_movieView->isPlaying() || isTurnOver()) switchMovie();
}

// The movie that ended stands meanwhile, or the sign goes on.
void MySaver::tickWhileSearching()
{
    advanceSearch();
    if (m_search && m_search->isLong(m_services.desktop.clock().now())) showSignInLongSearch();
    if (!m_movieView) move(m_sign);
}

// Where there is nothing to look at meanwhile: no movie yet, or one that broke off.
void MySaver::showSignInLongSearch()
{
    if (m_search->purpose() == MovieSearch::Purpose::Replace) dropMovieFrame();
    if (!m_movieView && !m_sign.isShown()) showSign(signForStart());
}

void MySaver::moveMovie()
{
    sizeLate();
    if (!m_settings.isDynamicMode()) return;
    if (m_windowMode)
        moveMovieWindow();
    else
        flyMovie();
    askForStillAhead();
}

void MySaver::sizeLate()
{
    const auto movie = m_movieView->movie();
    if (m_movieView->frame().isEmpty() && movie && !movie->naturalSize().isEmpty()) resetMovieViewFrame();
}

void MySaver::moveMovieWindow()
{
    if (m_stepCount > lastStepBeforeCapture) {
        if (hasEffects()) queueImageThread();
        m_stepCount = 0;
    } else {
        ++m_stepCount;
    }
    markTrail();
    const Rect screen = m_geometry.screenFrame();
    const Rect next = m_bounce.newRectFromScreen(m_movieView->frame(), screen);
    m_bounce.turnStray(next, screen);
    m_movieView->setFrameOrigin(next.origin);
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
    if (!m_flyTime) return false;
    const double now = m_services.desktop.clock().now();
    if (!(now - *m_flyTime > static_cast<double>(m_settings.timeInterval()))) return false;
    m_flyTime = now;
    return true;
}

// What it does is done by the next tick.
void MySaver::changeMovie(MovieStep step)
{
    const bool isPlayed = m_movieView && (!m_search || m_steps.isUnderWay()) && m_rest.how == Rest::None;
    if (isPlayed && m_playlist.fileList().size() > 1) m_steps.ask(step);
}

// One that is never to be played again is over as if the next one had been asked for.
void MySaver::act(SaverAct what)
{
    if (!m_movieView || !screen() || m_rest.how != Rest::None) return;
    if (m_acts.act(what, {*m_movieView, m_steps.now(), *screen(), isFirstScreen()}))
        changeMovie(MovieStep::Next);
}

// It has played long enough, and there is another one to play, or that one is asked for.
bool MySaver::isTurnOver()
{
    const bool isOver = m_turn.isOver() && m_playlist.fileList().size() > 1;
    if (!isOver && !m_steps.isAsked()) return false;
    m_turn.renew();
    if (hasEffects()) m_movieView->stop(this);
    return true;
}

void MySaver::switchMovie()
{
    m_played = m_playlist.curIdx();
    if (hasEffects() && m_settings.isFlyMode())
        afterImageEffect();
    else if (hasEffects() && m_windowMode && m_playlist.fileList().size() > 1)
        queueImageNoThread();

    const auto step = m_steps.take();
    if (step) applyLoopMode(); // one that was alone need not be
    beginSearch(step == MovieStep::Previous ? MovieSearch::Purpose::Previous : MovieSearch::Purpose::Next);
}

void MySaver::move(SignImage& sign)
{
    if (!sign.isShown()) return;
    const Rect old = sign.imgBounds();
    sign.setImgBounds(m_bounce.newRectFromView(old, bounds()));
    m_bounce.turnStray(sign.imgBounds(), bounds());
    displayRectIgnoringOpacity(unionRect(old, sign.imgBounds()));
}

} // namespace kestro

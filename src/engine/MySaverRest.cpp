// How the saver rests: held while nobody sees it, as one picture that wanders about, or not there at all.

#include "engine/MySaver.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Window.h"
#include "platform/web/WebView.h"
#include "presentation/MovieFrame.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

constexpr double capturePause = 10;
/// Of the view's sides, at most: so there is room to wander, and no place of the screen shows it for long.
constexpr float stillShare = 0.5F;

} // namespace

void MySaver::captureStop()
{
    if (m_rest.how != Rest::None) return;
    rest(Rest::Held);
    m_captureTimer = m_services.desktop.timers().repeating(capturePause, [this] { rest(Rest::None); });
}

void MySaver::rest(Rest how)
{
    m_captureTimer.reset();
    const Rest before = std::exchange(m_rest.how, how);
    if (before == how) return;
    if (before == Rest::None) standStill();
    if (how == Rest::None) return goOn();
    if (how == Rest::Off) {
        letGo();
        m_acts.hide();
    }
    if (how == Rest::Still)
        beStill();
    else
        m_piggyBack.pause();
}

// A search waits until the rest is over, unless it is for the picture that is to show.
bool MySaver::isHeldUp() const
{
    return m_rest.how == Rest::Held || m_rest.how == Rest::Off || m_rest.still.isShown();
}

void MySaver::standStill()
{
    if (const auto behind = otherSaver()) behind->stopAnimation();
    m_fadeOut.pause();
    m_dissolve.end();
    m_rest.goesOn = m_movieView && m_movieView->isPlaying();
    if (m_movieView) m_movieView->stop(this);
}

// The movie first: a tick that found it stopped would take the next one.
void MySaver::goOn()
{
    setAnimationTimeInterval(m_sign.isShown() ? signInterval : movieInterval);
    m_rest.still.setSignImage({});
    if (std::exchange(m_rest.isLetGo, false)) {
        if (m_movieView) m_movieView->show(*this);
        openFadeOut();
        setNeedsDisplay(true);
    }
    if (m_rest.goesOn) startMovie();
    m_fadeOut.resume();
    m_piggyBack.resume();
    if (const auto behind = otherSaver()) behind->startAnimation();
}

// The fade's window goes too, with what it showed.
void MySaver::letGo()
{
    m_fadeOut.close();
    m_rest.isLetGo = true;
    if (m_movieView) {
        m_movieView->hide();
        m_movieView->letGo();
    }
    if (m_services.webEngine) m_services.webEngine->endUnused();
}

// Where everything was let go of before a picture was there, the movie is looked at once more.
void MySaver::beStill()
{
    setAnimationTimeInterval(signInterval);
    if (m_rest.isLetGo && !m_rest.still.isShown() && m_movieView) m_movieView->show(*this);
    m_piggyBack.resume();
}

void MySaver::tickWhileStill()
{
    if (m_rest.still.isShown() || takeStill()) return move(m_rest.still);
    if (!m_search && !m_movieView && m_retries.isDue(m_services.desktop.clock().now())) retry();
    if (m_search)
        tickWhileSearching();
    else if (!m_movieView)
        move(m_sign);
    else if (!replaceBrokenMovie())
        sizeLate();
    setAnimationTimeInterval(signInterval);
}

/// The picture that stands there takes the movie's place; false where there is none yet.
bool MySaver::takeStill()
{
    const auto* const screen = window() ? window()->screen() : nullptr;
    if (!m_movieView || !screen) return false;
    const Size whole = m_movieView->frame().size;
    const Size most{bounds().size.width * stillShare, bounds().size.height * stillShare};
    const float scale =
        whole.isEmpty() ? 0 : std::min({1.0F, most.width / whole.width, most.height / whole.height});
    const Picture picture =
        m_movieView->picture({whole.width * scale, whole.height * scale}, screen->surface().pixelRatio());
    if (picture.isNull()) return false;
    letGo();
    m_rest.still.setSignImage(picture);
    placeStill();
    m_bounce.assignRndValues();
    setNeedsDisplay(true);
    return true;
}

void MySaver::placeStill()
{
    m_rest.still.setImgBounds({m_geometry.randomPositionWithSize(m_rest.still.size()), m_rest.still.size()});
}

/// Unlike a sign it has no margin that would wipe the place where it was.
void MySaver::drawStill(Painter& painter)
{
    m_rest.still.forgetGround();
    m_rest.still.draw(painter, bounds(), false);
}

} // namespace kestro

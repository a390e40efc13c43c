#include "engine/MySaver.h"

#include "engine/BackSaverHost.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/Cursor.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/view/Painter.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"
#include "platform/web/WebView.h"
#include "presentation/KTMovieView.h"
#include "presentation/KTMovieWindow.h"
#include "settings/BackSaverMenu.h"
#include "settings/LatestTrailers.h"
#include "settings/MovieURL.h"

#include <utility>

namespace kestro {

namespace {

DayClock dayClock(const SaverServices& services)
{
    return DayClock(services.place, [&clock = services.desktop.clock()] { return clock.wallTime(); });
}

} // namespace

std::shared_ptr<ScreenSaverView> MySaver::initWithFrameIsPreview(const Rect& frame, bool isPreview,
                                                                 const SaverServices& services)
{
    if (services.backSavers.isLoading()) return nullptr;
    auto saver = std::make_shared<MySaver>(frame, isPreview, services);
    auto otherSaver = saver->loadOtherSaver();
    if (!otherSaver) return saver;
    saver->m_piggyBack.begin(saver, otherSaver);
    return otherSaver;
}

MySaver::MySaver(const Rect& frame, bool isPreview, const SaverServices& services)
    : ScreenSaverView(frame, isPreview)
    , m_services(services)
    , m_settings(services.store, {isPreview, false})
    , m_playlist(m_settings, services.trailers, isPreview, services.folders, services.marks)
    , m_sequencer({m_settings, m_playlist, services.movies, services.desktop.random(),
                   services.desktop.clock(), isPreview,
                   [web = services.webEngine] { return web && web->isAvailable(); }, services.shuffle,
                   services.never, dayClock(services)})
    , m_geometry(*this, m_settings, services.desktop.random())
    , m_bounce(services.desktop.random())
    , m_fadeOut(services.desktop.timers())
    , m_dissolve(services.options.dissolveSeconds, services.desktop.timers(), services.desktop.clock())
    , m_trail([this](const Rect& place) { markStill(place); })
    , m_stillAhead(m_captures, services.desktop.clock())
    , m_piggyBack(services.desktop)
    , m_resumePoint(m_settings, services.store)
    , m_turn(services.options, services.desktop.random(), services.desktop.clock())
    , m_acts(m_settings, m_playlist, services, isPreview)
{
    m_bounce.assignRndValuesWithSign();
    m_windowMode = !isPreview && m_settings.isBounceMode();
    m_settings.setWindowMode(m_windowMode);
    forgetBackSaverThatIsGone();
    m_playlist.folders().setWhenNews([this] { advanceSearch(); });
}

MySaver::~MySaver()
{
    m_services.trailers.stopThreading();
}

// What the sheet does when it opens counts from the start. The folders of savers are only read where one is
// chosen.
void MySaver::forgetBackSaverThatIsGone()
{
    if (m_settings.backSaver()) selectBackSaver(m_settings, backSaverItems(reloadBackSavers()));
}

QStringList MySaver::reloadBackSavers()
{
    m_services.backSavers.reloadBackSavers();
    return m_services.backSavers.backSaverList();
}

std::shared_ptr<ScreenSaverView> MySaver::loadOtherSaver()
{
    const auto path = m_settings.backSaver();
    if (isPreview() || !path || !m_settings.isDynamicMode()) return nullptr;
    return m_services.backSavers.loadOtherSaverWithFrameIsPreview(*path, frame(), false, m_services.desktop);
}

void MySaver::startAnimation()
{
    if (!isPreview()) m_services.desktop.cursor().hide();
    if (!m_saverInited && !m_search) {
        setAnimationTimeInterval(movieInterval);
        beginSearch(MovieSearch::Purpose::Start);
    }
    openFadeOut();
    if (!m_search) startMovie();
    if (m_settings.isFlyMode() || (isPreview() && m_settings.isBounceMode()))
        m_flyTime = m_services.desktop.clock().now();
    else
        m_flyTime.reset();
    ScreenSaverView::startAnimation();
}

std::unique_ptr<MovieFrame> MySaver::createMovieFrame(const Rect& rect)
{
    const MovieFramePlatform platform{m_services.desktop, m_services.webEngine};
    if (!m_windowMode) return std::make_unique<KTMovieView>(rect, platform);
    return screen() ? std::make_unique<KTMovieWindow>(rect, *screen(), platform) : nullptr;
}

bool MySaver::makeMovieFrame()
{
    m_movieView = createMovieFrame(bounds());
    if (!m_movieView) return false;
    applyLoopMode();
    m_movieView->showControllerAdjustingSize(false, false);
    m_movieView->show(*this);
    return true;
}

void MySaver::applyLoopMode()
{
    const auto mode = m_movieView ? m_settings.loopMode(m_playlist.fileList().size()) : std::nullopt;
    if (mode) m_movieView->setLoopMode(*mode);
}

void MySaver::dropMovieFrame()
{
    if (!m_movieView) return;
    m_captures.wait();
    m_movieView->setMovie({});
    m_movieView->hide();
    m_movieView.reset();
}

void MySaver::openFadeOut()
{
    if (m_windowMode || !leavesPictures()) return;
    if (!screen()) logLine(QStringLiteral("Cannot find curScreen from startAnimation."));
    m_fadeOut.open(screen());
    m_acts.raise();
}

void MySaver::stopAnimation()
{
    m_search.reset();
    if (m_captureTimer) m_rest.how = Rest::None;
    m_captureTimer.reset();
    m_fadeOut.stopTimer();
    m_dissolve.end();
    m_piggyBack.stopTimers();
    storeResumePoint();
    if (m_windowMode && m_movieView) {
        m_captures.cancel();
        m_movieView->setMovie({});
        m_movieView->hide();
    }
    m_fadeOut.close();
    m_acts.hide();
    const auto self = m_piggyBack.close();
    m_services.backSavers.restoreSlideFolder();
    ScreenSaverView::stopAnimation();
    m_services.desktop.cursor().unhide();
}

void MySaver::storeResumePoint()
{
    const auto movie = m_movieView ? m_movieView->movie() : nullptr;
    if (movie && isFirstScreen()) m_resumePoint.store(*movie);
}

void MySaver::resetMovie()
{
    const auto self = m_piggyBack.saver();
    stopAnimation();
    m_retries.end();
    if (m_saverInited) m_resumePoint.end();
    beginSearch(MovieSearch::Purpose::Restart);
    startAnimation();
}

bool MySaver::_resetMovie(const MovieContent& content)
{
    m_captures.wait();
    hideSign();
    if (m_movieView) dissolve();
    if (!m_movieView && !makeMovieFrame()) return false;
    if (m_movieView->movie()) m_movieView->setMovie({});
    m_movieView->hide();
    goToResumePoint(content);
    m_movieView->setMovie(content);
    applySound();
    resetMovieViewFrame();
    m_movieView->show(*this);
    if (m_windowMode) setNeedsDisplay(true);
    return true;
}

void MySaver::goToResumePoint(const MovieContent& content)
{
    m_turn.begin();
    const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content);
    if (movie)
        placeInTime(**movie);
    else
        m_resumePoint.end();
}

void MySaver::placeInTime(QTMovie& movie)
{
    const bool isResumed = m_resumePoint.goTo(movie);
    m_turn.place(movie, isResumed);
}

Screen* MySaver::screen() const
{
    return window() ? window()->screen() : nullptr;
}

// The screen that plays sound and whose movie the next run begins with.
bool MySaver::isFirstScreen() const
{
    return screen() && m_services.desktop.isFirst(*screen());
}

void MySaver::applySound()
{
    m_movieView->setMuted(!isFirstScreen() || isPreview() || !m_settings.isSoundOn());
    m_acts.applyVolume(*m_movieView);
}

void MySaver::resetMovieViewFrame()
{
    setMovieFrame(m_geometry.placeFor(*m_movieView, m_windowMode));
    if (m_settings.isDynamicMode()) m_bounce.assignRndValuesWithSign();
}

void MySaver::setMovieFrame(const Rect& rect)
{
    m_movieView->place(rect);
    const auto& copy = m_sequencer.cacheMovie();
    if (!m_windowMode || !m_settings.fadeoutEffect() || !copy) return;
    SetMovieBox(*copy, {0, 0, static_cast<std::int16_t>(rect.size.height),
                        static_cast<std::int16_t>(rect.size.width)});
}

void MySaver::setFrame(const Rect& frame)
{
    ScreenSaverView::setFrame(frame);
    fitToFrame();
}

// What a window does to its content view when it is resized itself.
void MySaver::setFrameSize(Size size)
{
    ScreenSaverView::setFrameSize(size);
    fitToFrame();
}

void MySaver::fitToFrame()
{
    m_sign.forgetGround();
    if (m_movieView) resetMovieViewFrame();
    if (m_sign.isShown()) placeSign();
    if (m_rest.still.isShown()) placeStill();
}

void MySaver::showSign(const Picture& sign)
{
    m_sign.setSignImage(sign);
    m_acts.showMovie({});
    placeSign();
    setAnimationTimeInterval(signInterval);
    setNeedsDisplay(true);
}

void MySaver::placeSign()
{
    m_sign.setImgBounds({m_geometry.randomPositionWithSize(m_sign.size()), m_sign.size()});
}

void MySaver::hideSign()
{
    if (!m_sign.isShown()) return;
    m_sign.setSignImage({});
    m_sign.forgetGround();
    setNeedsDisplay(true);
}

const Picture& MySaver::signForStart()
{
    auto& signs = m_services.signs;
    if (isPreview()) return signs.previewImage();
    return m_playlist.plistFileList().isEmpty() ? signs.selectImage() : signs.failedImage();
}

void MySaver::fallBackToSign(const Picture& sign)
{
    dropMovieFrame();
    m_sign.forgetGround();
    showSign(sign);
    m_bounce.assignRndValues();
}

void MySaver::drawRect(Painter& painter, const Rect& rect)
{
    const bool overBackground = otherSaver() != nullptr;
    if (m_rest.still.isShown()) return drawStill(painter);
    if (m_sign.isShown()) return m_sign.draw(painter, bounds(), overBackground);
    const Rect hidden = overBackground ? Rect{} : coveredByMovie();
    drawGround(painter, rect, hidden);
    if (m_windowMode) m_trail.draw(painter, rect, overBackground, hidden);
}

// In a window of its own the saver has no black of its own: what was drawn there before goes, and what is
// behind shows.
void MySaver::drawGround(Painter& painter, const Rect& rect, const Rect& hidden)
{
    if (m_piggyBack.hasWindow()) return painter.fill(rect, Qt::transparent);
    for (const Rect& part : m_trail.uncovered(rect, hidden))
        ScreenSaverView::drawRect(painter, part);
}

// What the movie's window hides need not be drawn: it is at the next tick, when the window has moved on.
Rect MySaver::coveredByMovie() const
{
    if (!m_movieView) return {};
    const Rect covered = m_movieView->covered();
    const Point screen = m_geometry.screenFrame().origin;
    return covered.movedBy({-screen.x, -screen.y});
}

SaverSnapshot MySaver::snapshot() const
{
    SaverSnapshot shot;
    const Point toScreen{-m_geometry.screenFrame().origin.x, -m_geometry.screenFrame().origin.y};
    if (const auto movie = m_movieView ? m_movieView->movie() : nullptr) {
        const Rect frame = m_movieView->frame();
        shot.movie = {absoluteString(movie->url()),
                      movie->currentTime().timeValue,
                      movie->rate(),
                      m_windowMode ? frame.movedBy(toScreen) : convertToWindow(frame),
                      movie->duration().timeValue,
                      m_rest.how == Rest::None && !m_movieView->isMuted(),
                      m_movieView->volume()};
    }
    shot.curIdx = m_playlist.curIdx();
    shot.trail = m_trail.count();
    shot.isFading = m_fadeOut.isFading();
    if (!m_movieView && m_sign.isShown()) shot.sign = m_sign.imgBounds();
    if (m_rest.still.isShown()) shot.sign = m_rest.still.imgBounds();
    return shot;
}

} // namespace kestro

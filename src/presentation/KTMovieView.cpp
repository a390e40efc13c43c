#include "presentation/KTMovieView.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/LayerCapture.h"
#include "platform/display/view/Painter.h"
#include "platform/movie/QTMovie.h"
#include "platform/web/WebView.h"
#include "presentation/KTQTMovieView.h"

#include <cmath>
#include <utility>
#include <vector>

namespace kestro {

namespace {

/// A movie stands this much below the frame's lower edge, which hides the edge rows that many encoders spoil.
constexpr float movieOffset = -2;

/// A web page lives on out of sight, ended, when other content takes its place.
void keepForGood(std::unique_ptr<View> webView)
{
    static auto& kept = *new std::vector<std::unique_ptr<View>>;
    kept.push_back(std::move(webView));
}

} // namespace

KTMovieView::KTMovieView(const Rect& frame, const MovieFramePlatform& platform)
    : View(frame)
    , m_platform(platform)
{
}

KTMovieView::~KTMovieView() = default;

KTQTMovieView* KTMovieView::innerMovieView() const
{
    return dynamic_cast<KTQTMovieView*>(m_movieView.get());
}

WebView* KTMovieView::innerWebView() const
{
    return dynamic_cast<WebView*>(m_movieView.get());
}

void KTMovieView::setMovie(const MovieContent& content)
{
    removeContent();
    m_pageLetGo.clear();
    if (const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content)) showMovie(*movie);
    if (const auto* url = std::get_if<QUrl>(&content)) showWebContent(*url);
}

void KTMovieView::removeContent()
{
    if (!m_movieView) return;
    holdPicture();
    m_movieView->removeFromSuperview();
    if (auto* inner = innerMovieView()) {
        inner->setMovie(nullptr);
        m_movieView.reset();
    } else {
        if (auto* page = innerWebView()) page->stopLoading();
        keepForGood(std::move(m_movieView));
    }
}

void KTMovieView::showMovie(const std::shared_ptr<QTMovie>& movie)
{
    auto view = std::make_unique<KTQTMovieView>(Rect{{0, movieOffset}, bounds().size});
    view->setLoopMode(m_loopMode);
    view->setMuted(m_mute);
    view->showControllerAdjustingSize(m_showController, m_adjustSize);
    view->setMovie(movie);
    addSubview(*view);
    m_movieView = std::move(view);
}

void KTMovieView::showWebContent(const QUrl& url)
{
    if (!m_platform.webEngine) return;
    auto view = m_platform.webEngine->makeWebView(bounds());
    addSubview(*view);
    view->setMuted(m_mute);
    view->loadMovie(url);
    m_movieView = std::move(view);
    m_page = url;
}

std::shared_ptr<QTMovie> KTMovieView::movie() const
{
    const auto* inner = innerMovieView();
    return inner ? inner->movie() : nullptr;
}

Rect KTMovieView::movieRect() const
{
    const auto* inner = innerMovieView();
    return inner ? inner->movieRect() : bounds();
}

void KTMovieView::start(const void* sender)
{
    if (!m_pageLetGo.isEmpty()) showWebContent(std::exchange(m_pageLetGo, {}));
    auto* inner = innerMovieView();
    if (!inner) return;
    inner->setLoopMode(m_loopMode);
    inner->setMuted(m_mute);
    inner->showControllerAdjustingSize(m_showController, m_adjustSize);
    inner->start(sender);
}

void KTMovieView::stop(const void* sender)
{
    if (auto* inner = innerMovieView()) inner->stop(sender);
}

void KTMovieView::letGo()
{
    if (const auto held = movie()) return held->letGo();
    if (!innerWebView()) return;
    removeContent();
    m_pageLetGo = m_page;
}

Picture KTMovieView::picture(Size size, double pixelRatio) const
{
    Layer* const layer = m_movieView ? m_movieView->layer() : nullptr;
    if (!layer || !layer->hasFrame() || size.isEmpty()) return {};
    const QSize pixels{static_cast<int>(std::lround(size.width * pixelRatio)),
                       static_cast<int>(std::lround(size.height * pixelRatio))};
    return {renderLayer(*layer, pixels), size};
}

bool KTMovieView::isPlaying() const
{
    const auto* inner = innerMovieView();
    return !inner || inner->isPlaying();
}

void KTMovieView::keepPlaying()
{
    if (auto* inner = innerMovieView()) inner->keepPlaying();
}

void KTMovieView::setVolume(float volume)
{
    m_volume = volume;
    if (auto* inner = innerMovieView()) inner->setVolume(volume);
}

float KTMovieView::volume() const
{
    const auto* inner = innerMovieView();
    return inner ? inner->volume() : m_volume;
}

void KTMovieView::setMuted(bool muted)
{
    m_mute = muted;
    if (auto* inner = innerMovieView()) inner->setMuted(muted);
    if (auto* page = innerWebView()) page->setMuted(muted);
}

bool KTMovieView::isMuted() const
{
    const auto* inner = innerMovieView();
    return inner ? inner->isMuted() : m_mute;
}

void KTMovieView::setLoopMode(int mode)
{
    m_loopMode = mode;
    if (auto* inner = innerMovieView()) inner->setLoopMode(mode);
}

void KTMovieView::showControllerAdjustingSize(bool show, bool adjustSize)
{
    m_showController = show;
    m_adjustSize = adjustSize;
    if (auto* inner = innerMovieView()) inner->showControllerAdjustingSize(show, adjustSize);
}

Size KTMovieView::sizeWithScale(float scale) const
{
    if (!m_movieView) return bounds().size;
    if (const auto* inner = innerMovieView()) return inner->sizeForMagnification(1.0F);
    const auto* screen = m_platform.desktop.mainScreen();
    if (!screen) return {};
    const Size whole = screen->monitorSize();
    return {whole.width * scale / 4.0F, whole.height * scale / 4.0F};
}

void KTMovieView::setFrame(const Rect& frame)
{
    View::setFrame(frame);
    if (m_movieView) m_movieView->setFrameSize(frame.size);
}

void KTMovieView::setFrameSize(Size size)
{
    View::setFrameSize(size);
    if (m_movieView) m_movieView->setFrameSize(size);
}

void KTMovieView::drawRect(Painter& painter, const Rect& rect)
{
    painter.fill(rect, Qt::black);
    View::drawRect(painter, rect);
}

} // namespace kestro

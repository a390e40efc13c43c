#include "engine/MovieStage.h"

#include "platform/display/Screen.h"
#include "presentation/KTMovieWindow.h"

namespace kestro {

// A stage is only handed frames that it created, so their class is known.

ViewStage::ViewStage(View& saver, const MovieFramePlatform& platform)
    : m_saver(saver)
    , m_platform(platform)
{
}

std::unique_ptr<MovieFrame> ViewStage::createMovieFrame(const Rect& rect)
{
    return std::make_unique<KTMovieView>(rect, m_platform);
}

void ViewStage::addMovieFrame(MovieFrame& frame)
{
    m_saver.addSubview(static_cast<KTMovieView&>(frame));
}

void ViewStage::removeMovieFrame(MovieFrame& frame)
{
    static_cast<KTMovieView&>(frame).removeFromSuperview();
}

void ViewStage::setMovieFrame(MovieFrame& frame, const Rect& rect)
{
    static_cast<KTMovieView&>(frame).setFrame(rect);
}

Rect ViewStage::coveredBy(const MovieFrame&) const
{
    return {};
}

WindowStage::WindowStage(View& saver, const MovieFramePlatform& platform)
    : m_saver(saver)
    , m_platform(platform)
{
}

std::unique_ptr<MovieFrame> WindowStage::createMovieFrame(const Rect& rect)
{
    auto* window = m_saver.window();
    auto* screen = window ? window->screen() : nullptr;
    return screen ? std::make_unique<KTMovieWindow>(rect, *screen, m_platform) : nullptr;
}

void WindowStage::addMovieFrame(MovieFrame& frame)
{
    auto& window = static_cast<KTMovieWindow&>(frame);
    // On the saver's own black nothing but the stills could show the shadow, which is not worth its cost.
    window.setHasShadow(m_saver.window() && !m_saver.window()->isOpaque());
    window.makeKeyAndOrderFront();
}

void WindowStage::removeMovieFrame(MovieFrame& frame)
{
    static_cast<KTMovieWindow&>(frame).orderOut();
}

void WindowStage::setMovieFrame(MovieFrame& frame, const Rect& rect)
{
    static_cast<KTMovieWindow&>(frame).setFrameDisplay(rect, true);
}

Rect WindowStage::coveredBy(const MovieFrame& frame) const
{
    const auto& window = static_cast<const KTMovieWindow&>(frame);
    const bool covers = window.isVisible() && !window.contentView()->isHoldingPicture();
    return covers ? window.frame() : Rect{};
}

} // namespace kestro

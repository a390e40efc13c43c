#include "engine/FadeOut.h"

#include "engine/PictureWindow.h"
#include "platform/display/desktop/Timer.h"

#include <utility>

namespace kestro {

namespace {

constexpr double fadeInterval = 0.05; ///< seconds between two steps
constexpr double fadeStep = 0.05;     ///< opacity lost at each
constexpr Rect parked{{0, 0}, {1, 1}};

} // namespace

FadeOut::FadeOut(TimerSource& timers)
    : m_timers(timers)
{
}

FadeOut::~FadeOut() = default;

void FadeOut::open(Screen* screen)
{
    m_backWindow = openPictureWindow({parked, screen, QStringLiteral("fade")}, m_aiview);
}

void FadeOut::close()
{
    stopTimer();
    m_isPaused = false;
    closePictureWindow(m_backWindow);
}

void FadeOut::stopTimer()
{
    m_aiTimer.reset();
}

void FadeOut::startTimer()
{
    m_aiTimer = m_timers.repeating(fadeInterval, [this] { fadeoutWindow(); });
}

void FadeOut::pause()
{
    m_isPaused = isFading();
    stopTimer();
}

void FadeOut::resume()
{
    if (!std::exchange(m_isPaused, false)) return;
    startTimer();
    m_aiTimer->fire();
}

double FadeOut::secondsLeft() const
{
    return m_backWindow && isFading() ? m_backWindow->alphaValue() / fadeStep * fadeInterval : 0;
}

void FadeOut::leaveBehind(const Picture& image, const Rect& frame)
{
    if (!isReady()) return;
    setCapturedImageFrame(image, frame);
    startFadeout();
}

void FadeOut::setCapturedImageFrame(const Picture& image, const Rect& frame)
{
    if (!m_backWindow) return;
    const Rect place = image.isNull() ? parked : frame;
    m_aiview.setImageFrame(image, image.isNull() ? Rect{} : Rect{{0, 0}, frame.size});
    m_backWindow->disableFlushWindow();
    m_aiview.setFrame({{0, 0}, place.size});
    m_backWindow->enableFlushWindow();
    m_backWindow->setFrameDisplay(place, true);
}

void FadeOut::startFadeout()
{
    stopTimer();
    if (!m_backWindow) return;
    m_backWindow->setAlphaValue(1.0F);
    startTimer();
}

void FadeOut::fadeoutWindow()
{
    if (!m_backWindow) return stopTimer();
    auto alpha = static_cast<float>(m_backWindow->alphaValue() - fadeStep);
    if (alpha <= 0.0F) {
        setCapturedImageFrame({}, {});
        stopTimer();
        alpha = 1.0F;
    }
    m_backWindow->setAlphaValue(alpha);
}

} // namespace kestro

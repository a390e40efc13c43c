#include "platform/saver/HackLayer.h"

#include "platform/base/Clock.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/surface/x11/HiddenWindow.h"

#include <QImage>
#include <QPainter>

#include <cstring>

namespace kestro {

namespace {

constexpr double shortestPause = 1.0 / 30; // seconds

void copy(const QImage& image, const PixelTarget& target)
{
    for (int row = 0; row < target.height; ++row)
        std::memcpy(target.pixels + std::ptrdiff_t{target.stride} * row, image.constScanLine(row),
                    std::size_t(target.width) * 4);
}

void stretch(const QImage& image, const PixelTarget& target)
{
    QImage canvas(target.pixels, target.width, target.height, target.stride, QImage::Format_RGB32);
    QPainter(&canvas).drawImage(canvas.rect(), image);
}

} // namespace

HackLayer::HackLayer(const Clock& clock, TimerSource& timers)
    : m_clock(clock)
    , m_timers(timers)
{
}

HackLayer::~HackLayer() = default;

void HackLayer::setWindow(HiddenWindow* window)
{
    m_window = window;
    m_isDrawn = false;
    m_timer.reset();
}

void HackLayer::drawn()
{
    m_isDrawn = true;
    if (m_timer) return;
    const double passed = m_announced ? m_clock.now() - *m_announced : shortestPause;
    if (passed >= shortestPause)
        announce();
    else
        m_timer = m_timers.repeating(shortestPause - passed, [this] { announce(); });
}

void HackLayer::announce()
{
    m_announced = m_clock.now();
    m_timer.reset();
    announceFrame();
}

bool HackLayer::render(const PixelTarget& target)
{
    if (!hasFrame()) return false;
    const QImage& image = m_window->pixels();
    if (image.isNull()) return false;
    if (image.size() == QSize(target.width, target.height))
        copy(image, target);
    else
        stretch(image, target);
    return true;
}

} // namespace kestro

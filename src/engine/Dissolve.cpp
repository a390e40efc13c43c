#include "engine/Dissolve.h"

#include "engine/PictureWindow.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/Timer.h"

namespace kestro {

namespace {

constexpr double stepInterval = 1.0 / 30; ///< seconds between two steps of the fade

} // namespace

Dissolve::Dissolve(double seconds, TimerSource& timers, const Clock& clock)
    : m_seconds(seconds)
    , m_timers(timers)
    , m_clock(clock)
{
}

Dissolve::~Dissolve()
{
    end();
}

void Dissolve::begin(const Picture& picture, const Rect& place, Screen* screen,
                     std::function<bool()> hasBegun)
{
    end();
    if (!isWanted() || picture.isNull()) return;
    m_hasBegun = std::move(hasBegun);
    m_shownAt = m_clock.now();
    m_view.setFrame({{0, 0}, place.size});
    m_view.setImageFrame(picture, {{0, 0}, place.size});
    m_window = openPictureWindow({place, screen, QStringLiteral("dissolve")}, m_view);
    m_timer = m_timers.repeating(stepInterval, [this] { step(); });
}

void Dissolve::step()
{
    const double now = m_clock.now();
    if (!m_fadesFrom && (m_hasBegun() || now - m_shownAt > patience)) m_fadesFrom = now;
    if (!m_fadesFrom) return;
    const double left = 1 - (now - *m_fadesFrom) / m_seconds;
    if (left <= 0) return end();
    m_window->setAlphaValue(static_cast<float>(left));
}

void Dissolve::end()
{
    m_timer.reset();
    m_fadesFrom.reset();
    m_view.setImageFrame({}, {});
    closePictureWindow(m_window);
}

} // namespace kestro

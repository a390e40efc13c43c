#include "host/session/HostedSaver.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/surface/Surface.h"
#include "platform/saver/ScreenSaverView.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// A view that asks for no pause at all still leaves the event loop room to turn.
constexpr double shortestInterval = 0.001;

} // namespace

HostedSaver::HostedSaver(Screen& screen, std::shared_ptr<ScreenSaverView> view, TickHandler onTick)
    : m_screen(screen)
    , m_view(std::move(view))
    , m_window({screen.frame(), &screen, QStringLiteral("host")})
    , m_notifications(screen.desktop().notifications())
    , m_onTick(std::move(onTick))
    , m_monitorSize(screen.monitorSize())
{
    m_window.setLevel(WindowLevel::ScreenSaver);
    m_window.setOpaque(true);
    m_window.setBackgroundColor(Qt::black);
    m_window.setContentView(m_view.get());
    m_window.makeKeyAndOrderFront();
    m_notifications.addObserver(this, Notice::SaverAboveTicked, m_view.get(), [this] { saverAboveTicked(); });
}

HostedSaver::~HostedSaver()
{
    m_notifications.removeObserver(this);
    m_window.setContentView(nullptr);
}

void HostedSaver::start()
{
    if (m_state != State::Made) return;
    m_state = State::Running;
    m_view->startAnimation();
    schedule();
    if (restNow() != Rest::None) applyRest();
}

void HostedSaver::stop()
{
    const State before = m_state;
    m_state = State::Stopped;
    m_timer.reset();
    m_curtain.reset();
    if (before == State::Stopped) return;
    if (before == State::Running) m_view->stopAnimation();
    m_window.close();
}

void HostedSaver::rest(Rest how)
{
    if (std::exchange(m_rest, how) != how && m_state == State::Running) applyRest();
}

void HostedSaver::setSeen(bool isSeen)
{
    if (std::exchange(m_isSeen, isSeen) != isSeen && m_state == State::Running) applyRest();
}

Rest HostedSaver::restNow() const
{
    if (m_isSeen) return m_rest;
    return m_rest == Rest::None ? Rest::Held : Rest::Off;
}

// A saver behind the movies has no ticks while they rest: the movies' own go on as far as they need them.
void HostedSaver::applyRest()
{
    const Rest now = restNow();
    m_screen.surface().setWatched(m_rest != Rest::Off);
    auto* const saver = control();
    if (saver) saver->rest(now);
    drawCurtain();
    const bool isOwn = saver && saver == dynamic_cast<SaverControl*>(m_view.get());
    if (now == Rest::None || (now == Rest::Still && isOwn))
        schedule();
    else
        m_timer.reset();
}

void HostedSaver::drawCurtain()
{
    if (m_rest != Rest::Off) return m_curtain.reset();
    if (m_curtain) return;
    m_curtain =
        std::make_unique<Window>(Window::Description{m_screen.frame(), &m_screen, QStringLiteral("curtain")});
    m_curtain->setLevel(WindowLevel::Shielding);
    m_curtain->setOpaque(true);
    m_curtain->setBackgroundColor(Qt::black);
    m_curtain->orderFront();
}

// A view that keeps its size, but on another monitor, has its content to size anew all the same.
void HostedSaver::fitToScreen()
{
    const Rect frame = m_screen.frame();
    const bool isResized = frame.size != m_window.frame().size;
    const bool isOnOtherMonitor = m_screen.monitorSize() != m_monitorSize;
    m_monitorSize = m_screen.monitorSize();
    m_window.setFrameDisplay(frame, true);
    if (m_curtain) m_curtain->setFrameDisplay(frame, true);
    if (isOnOtherMonitor && !isResized) m_view->setFrameSize(frame.size);
}

void HostedSaver::tick()
{
    if (m_state != State::Running) return;
    const auto self = shared_from_this(); // whoever is told of the tick may let go of this
    m_view->animateOneFrame();
    if (m_state != State::Running) return;
    if (!m_isSaverAbove) tickIsOver();
    if (m_state == State::Running) schedule();
}

void HostedSaver::saverAboveTicked()
{
    if (m_state != State::Running) return;
    const auto self = shared_from_this();
    const bool isNew = !std::exchange(m_isSaverAbove, true);
    if (isNew && restNow() != Rest::None) applyRest(); // it began after the rest
    tickIsOver();
}

void HostedSaver::tickIsOver()
{
    ++m_ticks;
    if (m_onTick) m_onTick(*this);
}

void HostedSaver::schedule()
{
    const double interval = std::max(m_view->animationTimeInterval(), shortestInterval);
    if (m_timer && interval == m_interval) return;
    m_interval = interval;
    m_timer = m_screen.desktop().timers().repeating(interval, [this] { tick(); });
}

} // namespace kestro

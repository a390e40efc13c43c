#include "host/session/HostedSaver.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/saver/ScreenSaverView.h"

#include <algorithm>

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
}

void HostedSaver::stop()
{
    const State before = m_state;
    m_state = State::Stopped;
    m_timer.reset();
    if (before == State::Stopped) return;
    if (before == State::Running) m_view->stopAnimation();
    m_window.close();
}

// A view that keeps its size, but on another monitor, has its content to size anew all the same.
void HostedSaver::fitToScreen()
{
    const Rect frame = m_screen.frame();
    const bool isResized = frame.size != m_window.frame().size;
    const bool isOnOtherMonitor = m_screen.monitorSize() != m_monitorSize;
    m_monitorSize = m_screen.monitorSize();
    m_window.setFrameDisplay(frame, true);
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
    m_isSaverAbove = true;
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

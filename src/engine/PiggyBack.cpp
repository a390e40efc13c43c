#include "engine/PiggyBack.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/view/ViewGeometry.h"
#include "platform/display/view/Window.h"
#include "platform/saver/ScreenSaverView.h"

#include <utility>

namespace kestro {

namespace {

constexpr double findInterval = 0.1; ///< seconds between two looks for the window of the view behind

} // namespace

PiggyBack::PiggyBack(Desktop& desktop)
    : m_desktop(desktop)
{
}

PiggyBack::~PiggyBack()
{
    m_desktop.notifications().removeObserver(this);
}

void PiggyBack::begin(std::shared_ptr<ScreenSaverView> saver,
                      const std::shared_ptr<ScreenSaverView>& otherSaver)
{
    m_saver = std::move(saver);
    m_otherSaver = otherSaver;
    m_tmpTimer = m_desktop.timers().repeating(findInterval, [this] { findScreen(); });
    // From the beginning, so that a run that ends before the first look leaves nothing redirected.
    m_desktop.notifications().addObserver(this, Notice::ApplicationWillTerminate, nullptr,
                                          [this] { applicationWillTerminate(); });
}

void PiggyBack::findScreen()
{
    const auto saver = m_saver;
    const auto behind = otherSaver();
    if (!behind) return backgroundEnds();
    Window* windowBehind = behind->window();
    if (!windowBehind) return;
    m_tmpTimer.reset();
    openWindow(*windowBehind, *behind);
    saver->startAnimation();
    if (m_saver) startTicks();
}

void PiggyBack::openWindow(Window& windowBehind, const ScreenSaverView& behind)
{
    const Rect place = globalRect(behind);
    m_saver->setFrame({{0, 0}, place.size});
    m_mySaverWindow =
        std::make_unique<Window>(Window::Description{place, windowBehind.screen(), QStringLiteral("saver")});
    m_mySaverWindow->setOpaque(false);
    m_mySaverWindow->setBackgroundColor(Qt::transparent);
    m_mySaverWindow->setLevel(WindowLevel::Shielding);
    m_mySaverWindow->setContentView(m_saver.get());
    m_mySaverWindow->orderBack();
}

void PiggyBack::startTicks()
{
    m_interval = m_saver->animationTimeInterval();
    m_myTimer = m_desktop.timers().repeating(m_interval, [this] { tick(); });
}

// The saver may be stopped in its tick, and is kept until that is over.
void PiggyBack::tick()
{
    const auto saver = m_saver;
    const auto behind = otherSaver();
    if (!behind) return backgroundEnds();
    follow(*behind);
    saver->animateOneFrame();
    if (m_myTimer && saver->animationTimeInterval() != m_interval) startTicks();
    m_desktop.notifications().post(Notice::SaverAboveTicked, behind.get());
}

/// Monitors change their size.
void PiggyBack::follow(const ScreenSaverView& behind)
{
    if (!behind.window()) return;
    const Rect place = globalRect(behind);
    if (place != m_mySaverWindow->frame()) m_mySaverWindow->setFrameDisplay(place, false);
}

void PiggyBack::watchForClose()
{
    const auto behind = otherSaver();
    if (!behind || m_observerAdded) return;
    m_desktop.notifications().addObserver(this, Notice::WindowWillClose, behind->window(),
                                          [this] { windowWillClose(); });
    m_observerAdded = true;
}

void PiggyBack::backgroundEnds()
{
    if (!m_saver) return;
    const auto saver = m_saver;
    m_otherSaver.reset();
    m_desktop.notifications().removeObserver(this);
    saver->stopAnimation();
}

void PiggyBack::stopTimers()
{
    m_tmpTimer.reset();
    m_myTimer.reset();
    m_isPaused = false;
}

std::shared_ptr<ScreenSaverView> PiggyBack::close()
{
    if (m_mySaverWindow) {
        m_mySaverWindow->setContentView(nullptr);
        m_mySaverWindow->close();
        m_mySaverWindow.reset();
    }
    m_otherSaver.reset();
    return std::exchange(m_saver, nullptr);
}

void PiggyBack::pause()
{
    m_isPaused = m_isPaused || m_myTimer != nullptr;
    m_myTimer.reset();
}

void PiggyBack::resume()
{
    if (!std::exchange(m_isPaused, false)) return;
    startTicks();
    m_myTimer->fire();
}

} // namespace kestro

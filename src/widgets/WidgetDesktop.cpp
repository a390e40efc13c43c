#include "widgets/WidgetDesktop.h"

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "widgets/WidgetSurface.h"

#include <QScreen>
#include <QWidget>

namespace kestro {

namespace {

Rect frameOf(const QWidget& widget)
{
    return {{0, 0}, {static_cast<float>(widget.width()), static_cast<float>(widget.height())}};
}

/// The monitor that most of the widget's window is on.
Size monitorOf(const QWidget& widget)
{
    const QScreen* const monitor = widget.screen();
    const QSize size = monitor ? monitor->size() : widget.size();
    return {static_cast<float>(size.width()), static_cast<float>(size.height())};
}

} // namespace

SurfaceServices SurfaceServices::real()
{
    static QtTimerSource timers;
    static const SystemClock clock;
    static SystemRandom random;
    return {timers, clock, random};
}

WidgetDesktop::WidgetDesktop(QWidget& widget, const SurfaceServices& services)
    : WidgetDesktop(widget, services, std::make_unique<WidgetSurface>(widget))
{
}

WidgetDesktop::WidgetDesktop(QWidget& widget, const SurfaceServices& services,
                             std::unique_ptr<WidgetSurface> surface)
    : m_widget(widget)
    , m_services(services)
    , m_surface(*surface)
    , m_screen(std::make_unique<Screen>(*this, frameOf(widget), std::move(surface)))
{
    m_screen->setMonitorSize(monitorOf(widget));
}

WidgetDesktop::~WidgetDesktop() = default;

bool WidgetDesktop::follow()
{
    const bool isOtherCanvas = m_surface.follow();
    const Size monitor = monitorOf(m_widget);
    if (!isOtherCanvas && frameOf(m_widget) == m_screen->frame() && monitor == m_screen->monitorSize())
        return false;
    m_screen->setMonitorSize(monitor);
    m_screen->setFrame(frameOf(m_widget));
    if (m_observer.resized) m_observer.resized(*m_screen);
    return true;
}

} // namespace kestro

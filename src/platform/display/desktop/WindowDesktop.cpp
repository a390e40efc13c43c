#include "platform/display/desktop/WindowDesktop.h"

#include "platform/display/desktop/DeskPlace.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/display/surface/x11/ForeignWindowSurface.h"
#include "platform/display/surface/x11/X11Connection.h"

#include <QGuiApplication>
#include <QScreen>

namespace kestro {

Result<std::unique_ptr<WindowDesktop>> WindowDesktop::create(std::optional<std::uint32_t> window,
                                                             const Clock& clock, Random& random)
{
    const std::optional<std::uint32_t> id = window ? window : rootWindow();
    auto surface = id ? ForeignWindowSurface::create(*id) : nullptr;
    if (surface) return std::unique_ptr<WindowDesktop>(new WindowDesktop(std::move(surface), clock, random));
    if (!window) return Error{QStringLiteral("Cannot draw in the root window")};
    return Error{QStringLiteral("There is no window 0x%1 that can be drawn in").arg(*window, 0, 16)};
}

WindowDesktop::WindowDesktop(std::unique_ptr<ForeignWindowSurface> surface, const Clock& clock,
                             Random& random)
    : m_clock(clock)
    , m_random(random)
    , m_surface(*surface)
    , m_screen(std::make_unique<Screen>(*this, deskFrame(surface->place()), std::move(surface)))
{
    warnOfOpenGLInGivenWindow();
    m_screen->setMonitorSize(monitorSizeAt(m_surface.place()));
    m_surface.setChangeHandler([this] { follow(); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &m_listener, [this] { follow(); });
    for (const QScreen* monitor : QGuiApplication::screens())
        QObject::connect(monitor, &QScreen::geometryChanged, &m_listener, [this] { follow(); });
}

WindowDesktop::~WindowDesktop() = default;

void WindowDesktop::setGoneHandler(std::function<void()> handler)
{
    m_surface.setGoneHandler(std::move(handler));
}

void WindowDesktop::showSurface()
{
    m_surface.show();
}

bool WindowDesktop::isFirst(const Screen& screen) const
{
    return !intersectionRect(screen.frame(), firstMonitorFrame()).isEmpty();
}

void WindowDesktop::follow()
{
    const Rect frame = deskFrame(m_surface.place());
    const Size monitor = monitorSizeAt(m_surface.place());
    if (frame == m_screen->frame() && monitor == m_screen->monitorSize()) return;
    m_screen->setMonitorSize(monitor);
    m_screen->setFrame(frame);
    if (m_observer.resized) m_observer.resized(*m_screen);
}

} // namespace kestro

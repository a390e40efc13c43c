#include "platform/display/desktop/Screen.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/scene/Compositor.h"
#include "platform/display/scene/Renderer.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Window.h"

#include <algorithm>

namespace kestro {

namespace {

/// Null where the desktop is drawn in software.
std::unique_ptr<Renderer> rendererFor(const Desktop& desktop, Surface& surface)
{
    const auto openGL = desktop.openGL();
    return openGL ? openGL->makeRenderer(surface) : nullptr;
}

} // namespace

Screen::Screen(Desktop& desktop, const Rect& frame, std::unique_ptr<Surface> surface)
    : m_desktop(desktop)
    , m_frame(frame)
    , m_surface(std::move(surface))
    , m_compositor(std::make_unique<Compositor>(*m_surface, rendererFor(desktop, *m_surface)))
{
    m_surface->setRepairHandler([this] { repair(); });
    scheduleUpdate();
}

Screen::~Screen()
{
    for (Window* window : m_attached)
        window->screenGone();
}

void Screen::repair()
{
    if (m_onWanted) return m_onWanted();
    m_compositor->invalidate();
    scheduleUpdate();
}

void Screen::lendSurface(std::function<void()> onWanted)
{
    const bool isBack = m_onWanted && !onWanted;
    m_onWanted = std::move(onWanted);
    if (isBack) repair();
}

void Screen::setFrame(const Rect& frame)
{
    const Point by{frame.origin.x - m_frame.origin.x, frame.origin.y - m_frame.origin.y};
    m_frame = frame;
    m_compositor->invalidate();
    for (Window* window : m_attached)
        window->screenChanged(by);
    scheduleUpdate();
}

void Screen::update()
{
    m_scheduled = false;
    if (m_updating || m_onWanted) return;
    m_updating = true;
    drawMarkedViews();
    m_compositor->compose(m_windows, m_frame);
    m_updating = false;
}

void Screen::scheduleUpdate()
{
    if (m_scheduled) return;
    m_scheduled = true;
    const auto run = [this] {
        if (m_scheduled) update();
    };
    QMetaObject::invokeMethod(&m_turn, run, Qt::QueuedConnection);
}

void Screen::drawMarkedViews()
{
    // Copied: a view may order windows, and take them away, while it draws.
    for (Window* window : std::vector(m_windows)) {
        const bool isStillShown = std::find(m_windows.begin(), m_windows.end(), window) != m_windows.end();
        if (isStillShown && !window->isFlushingDisabled()) window->drawMarkedViews();
    }
}

void Screen::detach(Window& window)
{
    std::erase(m_attached, &window);
}

void Screen::order(Window& window, bool inFront)
{
    std::erase(m_windows, &window);
    const auto level = window.level();
    const auto place =
        std::find_if(m_windows.begin(), m_windows.end(), [level, inFront](const Window* other) {
            return inFront ? other->level() > level : other->level() >= level;
        });
    m_windows.insert(place, &window);
    scheduleUpdate();
}

void Screen::orderOut(Window& window)
{
    std::erase(m_windows, &window);
    scheduleUpdate();
}

} // namespace kestro

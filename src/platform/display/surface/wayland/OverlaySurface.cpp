#include "platform/display/surface/wayland/OverlaySurface.h"

#include "platform/display/surface/wayland/ClearBuffer.h"
#include "platform/display/surface/wayland/LayerRole.h"
#include "platform/display/surface/wayland/LayerShell.h"
#include "platform/display/surface/wayland/LetGoWatch.h"
#include "platform/display/surface/wayland/OutputPower.h"
#include "platform/display/surface/wayland/SyncCall.h"
#include "platform/display/surface/wayland/WaylandObjects.h"

#include <QGuiApplication>
#include <QScreen>

#include <wayland-client.h>

namespace kestro {

namespace {

/// Beyond so many points a side no monitor is meant.
constexpr int longestSide = 16384;

bool isSensible(QSize size)
{
    return size.width() > 0 && size.height() > 0 && size.width() <= longestSide &&
           size.height() <= longestSide;
}

} // namespace

OverlaySurface::OverlaySurface(const LayerShell& shell, LetGoWatch& letGo, OpenGL* openGL)
    : BackingStoreSurface(Qt::BypassWindowManagerHint, openGL)
    , m_shell(shell)
{
    m_window.setExposeHandler([this] { exposed(); });
    m_window.setSeenHandler([this](bool isExposed) {
        m_isExposed = isExposed;
        settleSeen();
    });
    letGo.watch(m_window);
}

OverlaySurface::~OverlaySurface() = default;

QRect OverlaySurface::placeOf(const QScreen& monitor) const
{
    const QRect whole = monitor.geometry();
    return {whole.topLeft(), m_size.isEmpty() ? whole.size() : m_size};
}

// The window appears with the compositor's first answer; nothing may be drawn before.
void OverlaySurface::show()
{
    wl_output* const output = waylandOutput(*m_monitor);
    wl_surface* const surface = waylandSurface(m_window);
    if (m_role || m_isGone || !output || !surface) return;
    m_role = std::make_unique<LayerRole>(
        m_shell, surface, output,
        LayerRole::Handlers{[this](QSize size) { configured(size); }, [this] { closed(); }});
    watchPower();
    wl_display_flush(waylandDisplay());
}

// It stays exposed on an output that is switched off.
void OverlaySurface::watchPower()
{
    m_isLit = true;
    m_power = OutputPower::create(m_shell, waylandOutput(*m_monitor), [this](bool isOn) {
        m_isLit = isOn;
        settleSeen();
    });
}

void OverlaySurface::settleSeen()
{
    tellSeen(m_isExposed && m_isLit);
}

void OverlaySurface::configured(QSize size)
{
    m_size = isSensible(size) ? size : QSize();
    if (m_clear) return;
    tellChange();
    m_window.setVisible(true);
}

// Whether the monitor is going, too, is known once the compositor has told all of it.
void OverlaySurface::closed()
{
    m_power.reset();
    m_role.reset();
    m_window.hide();
    m_goneCall = std::make_unique<SyncCall>([this] {
        m_isGone = true;
        tellGone();
    });
}

// The scale may have changed with nothing else.
void OverlaySurface::exposed()
{
    if (pixelSize() != wantedPixels()) tellChange();
    repair();
    if (m_insistsOnKeyboard) m_shownCall = std::make_unique<SyncCall>([this] { lookForKeyboard(); });
}

// Sway 1.10 may take a surface for the one that had the keyboard and went with its output. Looked for in a
// turn of its own, when Qt has told who has it.
void OverlaySurface::lookForKeyboard()
{
    const auto look = [this] {
        if (m_role && !QGuiApplication::focusWindow()) m_role->claimKeyboardAnew();
    };
    QMetaObject::invokeMethod(&m_window, look, Qt::QueuedConnection);
}

// A compositor may have shown the pointer again, with a new output, and Qt tells it nothing twice.
void OverlaySurface::setCursorHidden(bool hidden)
{
    m_window.setCursor(Qt::ArrowCursor);
    BackingStoreSurface::setCursorHidden(hidden);
}

void OverlaySurface::claimKeyboard()
{
    if (m_role) m_role->claimKeyboard();
}

void OverlaySurface::hide()
{
    m_power.reset();
    wl_surface* const surface = waylandSurface(m_window);
    if (!surface || !m_window.isVisible()) return m_role.reset();
    m_clear = ClearBuffer::create(m_shell.memory(), m_window.size());
    if (!m_clear) return m_role.reset();
    if (wl_surface_get_version(surface) >= WL_SURFACE_SET_BUFFER_SCALE_SINCE_VERSION)
        wl_surface_set_buffer_scale(surface, 1);
    wl_surface_set_opaque_region(surface, nullptr);
    wl_surface_attach(surface, m_clear->buffer(), 0, 0);
    wl_surface_damage(surface, 0, 0, m_window.width(), m_window.height());
    wl_surface_commit(surface);
    wl_display_flush(waylandDisplay());
}

void OverlaySurface::present(const QRegion& changed)
{
    if (!m_clear) BackingStoreSurface::present(changed);
}

QWindow* OverlaySurface::openGLWindow()
{
    return m_clear ? nullptr : BackingStoreSurface::openGLWindow();
}

// The window is made anew, and its place in the layer with it.
void OverlaySurface::leaveOpenGL()
{
    if (!openGLWindow()) return;
    const bool isToShow = m_role != nullptr;
    m_role.reset();
    m_window.hide();
    BackingStoreSurface::leaveOpenGL();
    if (isToShow) show();
}

} // namespace kestro

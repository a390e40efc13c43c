#include "platform/display/desktop/QtDesktop.h"

#include "platform/display/desktop/DeskPlace.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/x11/SessionInput.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/display/surface/MonitorSurface.h"
#include "platform/display/surface/wayland/Overlay.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace kestro {

namespace {

/// The place of a monitor's surface in global points.
Rect frameOf(const QScreen& monitor, const MonitorSurface& surface)
{
    return deskFrame(surface.placeOf(monitor));
}

} // namespace

QtDesktop::QtDesktop(const Clock& clock, Random& random)
    : m_clock(clock)
    , m_random(random)
    , m_openGL(chooseOpenGL(rendererWish()))
    , m_overlay(Overlay::create())
{
    for (QScreen* monitor : QGuiApplication::screens())
        add(monitor);
    putPrimaryFirst();
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &m_listener,
                     [this](QScreen* each) { plugIn(each); });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &m_listener,
                     [this](QScreen* each) { pullOut(each); });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &m_listener, [this] { rearrange(); });
}

QtDesktop::~QtDesktop() = default;

void QtDesktop::showSurfaces()
{
    m_isShown = true;
    for (const Monitor& monitor : m_monitors)
        monitor.surface->show();
    m_input = SessionInput::create(
        [this](InputEvent::Kind kind, InputEvent::Key key) { inputHeard(kind, key); }, m_tellsKeys);
}

void QtDesktop::hideSurfaces()
{
    m_isShown = false;
    if (m_input) m_input->swallow();
    for (const Monitor& monitor : m_monitors)
        monitor.surface->hide();
}

void QtDesktop::whenLetGo(std::function<void()> done)
{
    if (m_input)
        m_input->whenLetGo(std::chrono::seconds(longestPress), std::move(done));
    else if (m_overlay)
        m_overlay->whenLetGo(std::chrono::seconds(longestPress), std::move(done));
    else
        done();
}

void QtDesktop::giveBackFocus()
{
    if (m_input) m_input->giveBack();
}

/// Heard wherever it went: any monitor may tell of it, as every place can be counted from any.
void QtDesktop::inputHeard(InputEvent::Kind kind, InputEvent::Key key)
{
    if (m_monitors.empty() || !m_isShown) return;
    const Monitor& first = m_monitors.front();
    first.surface->tell({kind, QCursor::pos() - first.qtScreen->geometry().topLeft(), key});
}

std::vector<Screen*> QtDesktop::screens() const
{
    std::vector<Screen*> all;
    for (const Monitor& monitor : m_monitors)
        all.push_back(monitor.screen.get());
    return all;
}

void QtDesktop::add(QScreen* qtScreen)
{
    auto surface = makeMonitorSurface(*qtScreen, m_openGL.get(), m_overlay.get());
    MonitorSurface* const borrowed = surface.get();
    borrowed->setChangeHandler([this] { rearrange(); });
    borrowed->setGoneHandler([this] { surfaceGone(); });
    auto screen = std::make_unique<Screen>(*this, frameOf(*qtScreen, *borrowed), std::move(surface));
    screen->setName(qtScreen->name());
    m_monitors.push_back({qtScreen, borrowed, std::move(screen)});
    QObject::connect(qtScreen, &QScreen::geometryChanged, &m_listener, [this] { rearrange(); });
}

void QtDesktop::plugIn(QScreen* qtScreen)
{
    add(qtScreen);
    Screen& screen = *m_monitors.back().screen;
    m_monitors.back().surface->insistOnKeyboard();
    if (m_isShown) m_monitors.back().surface->show();
    rearrange();
    m_cursor.refresh();
    if (m_observer.added) m_observer.added(screen);
}

void QtDesktop::pullOut(QScreen* qtScreen)
{
    const auto isIt = [qtScreen](const Monitor& monitor) { return monitor.qtScreen == qtScreen; };
    const auto gone = std::find_if(m_monitors.begin(), m_monitors.end(), isIt);
    if (gone == m_monitors.end()) return;
    if (m_observer.removed) m_observer.removed(*gone->screen);
    std::erase_if(m_monitors, isIt);
    rearrange();
    claimKeyboard();
}

void QtDesktop::rearrange()
{
    putPrimaryFirst();
    for (Monitor& monitor : m_monitors)
        followMonitor(monitor);
}

void QtDesktop::putPrimaryFirst()
{
    std::stable_partition(m_monitors.begin(), m_monitors.end(), [](const Monitor& monitor) {
        return monitor.qtScreen == QGuiApplication::primaryScreen();
    });
}

void QtDesktop::followMonitor(Monitor& monitor)
{
    // Done even where nothing changed: windows may have been moved about while monitors came and went.
    const QSize pixels = monitor.surface->pixelSize();
    monitor.surface->placeOn(*monitor.qtScreen);
    const Rect frame = frameOf(*monitor.qtScreen, *monitor.surface);
    if (frame == monitor.screen->frame() && pixels == monitor.surface->pixelSize()) return;
    monitor.screen->setFrame(frame);
    if (m_observer.resized) m_observer.resized(*monitor.screen);
}

/// Goes on with what is left of the surfaces; where none is, nobody could end the saver any more.
void QtDesktop::surfaceGone()
{
    claimKeyboard();
    const bool isAllGone =
        std::ranges::all_of(m_monitors, [](const Monitor& monitor) { return monitor.surface->isGone(); });
    if (isAllGone && !m_monitors.empty())
        m_monitors.front().surface->tell({InputEvent::Kind::CloseRequest, {}});
}

void QtDesktop::claimKeyboard()
{
    for (const Monitor& monitor : m_monitors)
        monitor.surface->claimKeyboard();
}

} // namespace kestro

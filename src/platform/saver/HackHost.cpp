#include "platform/saver/HackHost.h"

#include "platform/base/Log.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/PixelRect.h"
#include "platform/display/view/Window.h"
#include "platform/saver/HackProcess.h"

namespace kestro {

namespace {

constexpr int mostRestarts = 3;
/// Nothing here waits for a tick but a screen that has changed.
constexpr double tickInterval = 1.0;

} // namespace

Result<std::shared_ptr<HackHost>> HackHost::create(const Rect& frame, bool isPreview, const Hack& hack,
                                                   const QString& bundle, Desktop& desktop)
{
    const std::shared_ptr<HackHost> host(new HackHost(frame, isPreview, hack, bundle, desktop));
    if (const auto opened = host->openWindow(); !opened) return opened.failure();
    return host;
}

HackHost::HackHost(const Rect& frame, bool isPreview, Hack hack, QString bundle, Desktop& desktop)
    : ScreenSaverView(frame, isPreview)
    , m_hack(std::move(hack))
    , m_bundle(std::move(bundle))
    , m_layer(desktop.clock(), desktop.timers())
{
    setAnimationTimeInterval(tickInterval);
}

HackHost::~HackHost()
{
    setLayer(nullptr);
    m_layer.setWindow(nullptr);
}

Result<void> HackHost::openWindow()
{
    using Drawing = HiddenWindow::Drawing;
    auto window = HiddenWindow::create(
        pixelSize(), m_hack.drawsOpenGL ? Drawing::OpenGL : Drawing::Plain,
        {[this] { m_layer.drawn(); }, [this] { giveUp(QStringLiteral("the X server went away")); }});
    if (!window) return window.failure();
    m_layer.setWindow(nullptr);
    m_window = std::move(window.value());
    m_layer.setWindow(m_window.get());
    m_isFresh = true;
    return {};
}

void HackHost::startAnimation()
{
    ScreenSaverView::startAnimation();
    if (m_process) return;
    m_restarts = 0;
    launch();
}

/// The window stays, and the picture in it, until the next start.
void HackHost::stopAnimation()
{
    ScreenSaverView::stopAnimation();
    m_process.reset();
}

/// A hack gets a window that no other one has touched: what is left of that one may still be drawing.
void HackHost::launch()
{
    const QString program = m_hack.executable();
    if (program.isEmpty()) {
        giveUp(QStringLiteral("there is no program %1").arg(m_hack.program));
        return;
    }
    if (const auto opened = m_isFresh ? Result<void>() : openWindow(); !opened) {
        giveUp(opened.error());
        return;
    }
    fitWindow();
    m_isFresh = false;
    setLayer(&m_layer);
    auto process = HackProcess::start(QStringList(program) + m_hack.arguments, m_window->id(),
                                      [this](HackGuardStatus status) { hackEnded(status); });
    if (process)
        m_process = std::move(process.value());
    else
        giveUp(process.error());
}

void HackHost::hackEnded(HackGuardStatus status)
{
    m_process.reset();
    if (status == HackGuardStatus::NotStarted)
        giveUp(QStringLiteral("%1 cannot be run").arg(m_hack.program));
    else if (m_restarts++ < mostRestarts)
        launch();
    else
        giveUp(QStringLiteral("%1 has %2 too often")
                   .arg(m_hack.program, status == HackGuardStatus::Crashed ? QStringLiteral("crashed")
                                                                           : QStringLiteral("ended")));
}

void HackHost::giveUp(const QString& reason)
{
    logLine(QStringLiteral("%1 stays black: %2").arg(m_bundle, reason));
    m_process.reset();
    setLayer(nullptr);
    m_layer.setWindow(nullptr);
    m_window.reset();
    m_isFresh = false;
    setNeedsDisplay(true);
}

void HackHost::setFrame(const Rect& frame)
{
    ScreenSaverView::setFrame(frame);
    fitWindow();
}

void HackHost::setFrameSize(Size size)
{
    ScreenSaverView::setFrameSize(size);
    fitWindow();
}

/// Layers are drawn at even widths.
QSize HackHost::pixelSize() const
{
    const Window* const in = window();
    const Screen* const screen = in ? in->screen() : nullptr;
    const double ratio = screen ? screen->surface().pixelRatio() : 1;
    const Size points = frame().size;
    const int width = pixelEdge(double{points.width} * ratio);
    return QSize((width + 1) / 2 * 2, pixelEdge(double{points.height} * ratio)).expandedTo({2, 1});
}

void HackHost::fitWindow()
{
    if (m_window) m_window->resize(pixelSize());
}

} // namespace kestro

#include "platform/saver/PictureFolderView.h"

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/Painter.h"
#include "platform/display/view/PixelRect.h"
#include "platform/display/view/Window.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

constexpr double fadeInterval = 1.0 / 30;
/// Nothing here waits for a tick.
constexpr double tickInterval = 1.0;

void drawFitted(QPainter& painter, const QImage& image, const QRectF& room, double opacity)
{
    if (image.isNull()) return;
    QRect place({0, 0}, image.size().scaled(pixelRectOf(room).size(), Qt::KeepAspectRatio));
    place.moveCenter(pixelRectOf(room).center());
    painter.setOpacity(opacity);
    painter.drawImage(place, image);
}

} // namespace

PictureFolderView::PictureFolderView(const Rect& frame, bool isPreview, QString folder, Desktop& desktop)
    : ScreenSaverView(frame, isPreview)
    , m_folder(std::move(folder))
    , m_clock(desktop.clock())
    , m_timers(desktop.timers())
    , m_order(desktop.random())
{
    setAnimationTimeInterval(tickInterval);
}

PictureFolderView::~PictureFolderView() = default;

void PictureFolderView::startAnimation()
{
    if (isAnimating()) return;
    ScreenSaverView::startAnimation();
    m_isDue = true;
    m_isFirstRound = true;
    m_order.begin({});
    prepareNext();
}

/// What is seen stays.
void PictureFolderView::stopAnimation()
{
    ScreenSaverView::stopAnimation();
    m_timer.reset();
    m_loader.cancel();
    m_next.reset();
    m_previous = {};
    m_fadeBegan.reset();
}

/// A folder of one picture comes back to the one that is seen: that one just stays.
void PictureFolderView::prepareNext()
{
    const auto path = m_order.next();
    if (!path) {
        m_loader.list(m_folder, [this](const QStringList& pictures) { listed(pictures); });
        return;
    }
    if (*path == m_current.path && m_current.room == room()) {
        m_roundShowed = true;
        m_isDue = true;
        after(standSeconds, &PictureFolderView::prepareNext);
        return;
    }
    m_loader.read(*path, room(), [this, path = *path, room = room()](const Result<QImage>& image) {
        read(path, room, image);
    });
}

void PictureFolderView::listed(const QStringList& pictures)
{
    const bool hadSomething = std::exchange(m_roundShowed, false);
    const bool isVain = !std::exchange(m_isFirstRound, false) && !hadSomething;
    if (pictures.isEmpty()) complainOnce(m_folder, QStringLiteral("no pictures in %1").arg(m_folder));
    if (pictures.isEmpty() || isVain) {
        goBlack();
        return;
    }
    m_order.begin(pictures);
    prepareNext();
}

void PictureFolderView::read(const QString& path, QSize room, const Result<QImage>& image)
{
    if (!image) {
        complainOnce(path, QStringLiteral("picture %1 skipped: %2").arg(path, image.error()));
        prepareNext();
        return;
    }
    m_roundShowed = true;
    m_next = Shown{path, room, image.value()};
    if (m_isDue) beginFade();
}

void PictureFolderView::complainOnce(const QString& subject, const QString& line)
{
    if (m_complained.contains(subject)) return;
    m_complained.insert(subject);
    logLine(line);
}

void PictureFolderView::goBlack()
{
    m_current = {};
    m_previous = {};
    m_fadeBegan.reset();
    m_isDue = true;
    m_isFirstRound = true;
    setNeedsDisplay(true);
    after(emptySeconds, &PictureFolderView::prepareNext);
}

void PictureFolderView::isDue()
{
    m_isDue = true;
    if (m_next) beginFade();
}

void PictureFolderView::beginFade()
{
    m_isDue = false;
    m_previous = std::exchange(m_current, std::move(*m_next)).image;
    m_next.reset();
    m_order.setShown(m_current.path);
    m_fadeBegan = m_clock.now();
    m_timer = m_timers.repeating(fadeInterval, [this] { fadeOn(); });
}

void PictureFolderView::fadeOn()
{
    setNeedsDisplay(true);
    if (faded() < 1) return;
    m_fadeBegan.reset();
    m_previous = {};
    after(standSeconds, &PictureFolderView::isDue);
    prepareNext();
}

/// Once.
void PictureFolderView::after(double seconds, void (PictureFolderView::*action)())
{
    m_timer = m_timers.repeating(seconds, [this, action] {
        m_timer.reset();
        (this->*action)();
    });
}

/// The part of the fade that is over, 0 to 1.
double PictureFolderView::faded() const
{
    return m_fadeBegan ? std::clamp((m_clock.now() - *m_fadeBegan) / fadeSeconds, 0.0, 1.0) : 1.0;
}

/// The two add up, so that where both pictures are the same nothing flickers, and where one ends it fades
/// with the black beside it.
void PictureFolderView::drawRect(Painter& painter, const Rect& rect)
{
    ScreenSaverView::drawRect(painter, rect);
    const QRectF whole = painter.deviceRect(bounds());
    QPainter& device = painter.device();
    device.save();
    device.setRenderHint(QPainter::SmoothPixmapTransform);
    device.setCompositionMode(QPainter::CompositionMode_Plus);
    const double share = faded();
    drawFitted(device, m_previous, whole, 1 - share);
    drawFitted(device, m_current.image, whole, share);
    device.restore();
}

QSize PictureFolderView::room() const
{
    const Window* const in = window();
    const Screen* const screen = in ? in->screen() : nullptr;
    const double ratio = screen ? screen->surface().pixelRatio() : 1;
    return {pixelEdge(double{frame().size.width} * ratio), pixelEdge(double{frame().size.height} * ratio)};
}

} // namespace kestro

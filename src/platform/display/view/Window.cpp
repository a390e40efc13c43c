#include "platform/display/view/Window.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"
#include "platform/display/view/BackingStore.h"
#include "platform/display/view/View.h"
#include "platform/display/view/WindowShadow.h"

#include <utility>

namespace kestro {

namespace {

void releaseOvertakenPictures(View& view)
{
    view.releaseOvertakenPicture();
    for (View* inside : view.subviews())
        releaseOvertakenPictures(*inside);
}

} // namespace

Window::Window(const Description& description)
    : m_kind(description.kind)
    , m_screen(description.screen)
    , m_desktop(m_screen ? &m_screen->desktop() : nullptr)
    , m_frame(description.contentRect)
    , m_store(std::make_unique<BackingStore>())
{
    if (m_screen) m_screen->attach(*this);
    resetStore();
}

Window::~Window()
{
    setContentView(nullptr);
    if (!m_screen) return;
    orderOut();
    m_screen->detach(*this);
}

void Window::setFrameDisplay(const Rect& frame, bool display)
{
    const bool isResized = frame.size != m_frame.size;
    m_frame = frame;
    if (m_contentView && m_contentView->frame().size != frame.size) m_contentView->setFrameSize(frame.size);
    if (isResized) resetStore();
    if (display && m_contentView) m_contentView->display();
    scheduleUpdate();
}

void Window::setFrameOrigin(Point origin)
{
    m_frame.origin = origin;
    scheduleUpdate();
}

void Window::setContentView(View* view)
{
    if (view == m_contentView) return;
    if (m_contentView) m_contentView->m_window = nullptr;
    m_contentView = view;
    if (view) {
        view->removeFromSuperview();
        if (view->m_window) view->m_window->setContentView(nullptr);
        view->m_window = this;
        if (view->frame().size != m_frame.size) view->setFrameSize(m_frame.size);
    }
    resetStore();
}

void Window::setAlphaValue(float alpha)
{
    m_alpha = alpha;
    scheduleUpdate();
}

void Window::setLevel(WindowLevel level)
{
    if (level == m_level) return;
    m_level = level;
    if (m_visible) orderFront();
}

void Window::setOpaque(bool opaque)
{
    m_opaque = opaque;
    scheduleUpdate();
}

void Window::setHasShadow(bool hasShadow)
{
    m_hasShadow = hasShadow;
    scheduleUpdate();
}

const QImage& Window::shadow(QSize pixels)
{
    if (pixels != m_shadowOf) m_shadow = WindowShadow::image(pixels, pixelRatio());
    m_shadowOf = pixels;
    return m_shadow;
}

void Window::setBackgroundColor(const QColor& colour)
{
    if (colour == m_background) return;
    m_background = colour;
    resetStore();
}

void Window::orderFront()
{
    show(true);
}

void Window::orderBack()
{
    show(false);
}

void Window::show(bool inFront)
{
    if (!m_screen) return;
    m_visible = true;
    m_screen->order(*this, inFront);
}

void Window::orderOut()
{
    if (!m_visible) return;
    m_visible = false;
    if (m_screen) m_screen->orderOut(*this);
}

void Window::close()
{
    if (m_desktop) m_desktop->notifications().post(Notice::WindowWillClose, this);
    orderOut();
}

void Window::disableFlushWindow()
{
    // A copy that shares the pixels: they are parted only if a view draws before flushing is on again.
    if (++m_flushDisables == 1) m_pixelsBeforeDisable = m_store->pixels();
}

void Window::enableFlushWindow()
{
    if (m_flushDisables == 0 || --m_flushDisables > 0) return;
    m_pixelsBeforeDisable.reset();
    scheduleUpdate();
}

void Window::flushWindow()
{
    scheduleUpdate();
}

const QImage& Window::shownPixels() const
{
    return m_pixelsBeforeDisable ? *m_pixelsBeforeDisable : m_store->pixels();
}

void Window::drawMarkedViews()
{
    if (!m_contentView) return;
    releaseOvertakenPictures(*m_contentView);
    m_store->drawMarked(*m_contentView);
}

void Window::scheduleUpdate()
{
    if (m_visible && m_screen) m_screen->scheduleUpdate();
}

void Window::screenChanged(Point movedBy)
{
    m_frame = m_frame.movedBy(movedBy);
    if (m_store->pixelRatio() == pixelRatio()) return;
    m_shadowOf = {};
    resetStore();
}

void Window::screenGone()
{
    m_screen = nullptr;
    m_visible = false;
}

void Window::resetStore()
{
    m_store->reset(m_frame.size, pixelRatio(), m_background);
    if (m_contentView) m_contentView->setNeedsDisplay(true);
    scheduleUpdate();
}

double Window::pixelRatio() const
{
    return m_screen ? m_screen->surface().pixelRatio() : 1.0;
}

} // namespace kestro

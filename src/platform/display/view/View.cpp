#include "platform/display/view/View.h"

#include "platform/display/view/BackingStore.h"
#include "platform/display/view/Layer.h"
#include "platform/display/view/LayerCapture.h"
#include "platform/display/view/Window.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// Beyond so many marks one around them all is cheaper.
constexpr size_t mostMarks = 16;

} // namespace

View::View(const Rect& frame)
    : m_frame(frame)
{
}

View::~View()
{
    *m_self = nullptr;
    if (m_window) m_window->setContentView(nullptr);
    removeFromSuperview();
    for (View* view : m_subviews)
        view->m_superview = nullptr;
}

void View::setFrame(const Rect& frame)
{
    changeFrame(frame);
}

void View::setFrameOrigin(Point origin)
{
    changeFrame({origin, m_frame.size});
}

void View::setFrameSize(Size size)
{
    changeFrame({m_frame.origin, size});
}

void View::changeFrame(const Rect& frame)
{
    if (frame == m_frame) return;
    if (m_superview) m_superview->setNeedsDisplayInRect(m_frame);
    m_frame = frame;
    setNeedsDisplay(true);
}

void View::addSubview(View& view)
{
    if (view.m_window) view.m_window->setContentView(nullptr);
    view.removeFromSuperview();
    view.m_superview = this;
    m_subviews.push_back(&view);
    view.setNeedsDisplay(true);
}

void View::removeFromSuperview()
{
    if (!m_superview) return;
    View& from = *std::exchange(m_superview, nullptr);
    std::erase(from.m_subviews, this);
    from.setNeedsDisplayInRect(m_frame);
}

Window* View::window() const
{
    const View* top = this;
    while (top->m_superview)
        top = top->m_superview;
    return top->m_window;
}

Rect View::convertToWindow(const Rect& rect) const
{
    Rect converted = rect;
    for (const View* view = this; view; view = view->m_superview)
        if (view->m_superview || view->m_window) converted = converted.movedBy(view->m_frame.origin);
    return converted;
}

void View::drawRect(Painter&, const Rect&) {}

void View::setNeedsDisplay(bool needed)
{
    m_marks.clear();
    if (needed) setNeedsDisplayInRect(bounds());
}

void View::setNeedsDisplayInRect(const Rect& rect)
{
    const Rect mark = intersectionRect(rect, bounds());
    if (!mark.isEmpty() && std::find(m_marks.begin(), m_marks.end(), mark) == m_marks.end())
        m_marks.push_back(mark);
    if (m_marks.size() > mostMarks) {
        Rect all;
        for (const Rect& each : m_marks)
            all = unionRect(all, each);
        m_marks = {all};
    }
    scheduleUpdate();
}

void View::display()
{
    m_marks.clear();
    displayRectIgnoringOpacity(bounds());
}

void View::displayRectIgnoringOpacity(const Rect& rect)
{
    Window* const in = window();
    if (!in) return;
    in->store().draw(*this, intersectionRect(rect, bounds()));
    in->scheduleUpdate();
}

std::vector<Rect> View::takeMarks()
{
    return std::exchange(m_marks, {});
}

void View::setLayer(Layer* layer)
{
    if (layer == m_layer) return;
    m_layer = layer;
    m_layerIdentity = layer ? makeIdentity() : 0;
    m_pictureIdentity = m_layerIdentity;
    if (layer) {
        layer->setPictureHandler([self = std::weak_ptr(m_self), layer] {
            const auto view = self.lock();
            if (view && *view && (*view)->m_layer == layer) (*view)->layerHasNewPicture();
        });
    }
    scheduleUpdate();
}

void View::layerHasNewPicture()
{
    m_pictureIdentity = makeIdentity();
    scheduleUpdate();
}

bool View::isLayerReady() const
{
    if (m_layer && m_layer->hasFrame()) return true;
    return std::any_of(m_subviews.begin(), m_subviews.end(),
                       [](const View* view) { return view->isLayerReady(); });
}

void View::holdPicture()
{
    auto picture = captureLayers(*this);
    if (!picture) return;
    m_held = std::move(*picture);
    scheduleUpdate();
}

void View::releaseOvertakenPicture()
{
    if (m_held && isLayerReady()) dropHeldPicture();
}

void View::dropHeldPicture()
{
    if (!m_held) return;
    m_held.reset();
    setNeedsDisplay(true);
}

void View::scheduleUpdate() const
{
    if (Window* const in = window()) in->scheduleUpdate();
}

} // namespace kestro

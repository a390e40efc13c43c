#include "platform/saver/ScreenSaverView.h"

#include "platform/display/view/Painter.h"

namespace kestro {

ScreenSaverView::ScreenSaverView(const Rect& frame, bool isPreview)
    : View(frame)
    , m_isPreview(isPreview)
{
}

ScreenSaverView::~ScreenSaverView() = default;

void ScreenSaverView::startAnimation()
{
    m_animating = true;
}

void ScreenSaverView::stopAnimation()
{
    m_animating = false;
}

void ScreenSaverView::drawRect(Painter& painter, const Rect& rect)
{
    painter.fill(rect, Qt::black);
}

} // namespace kestro

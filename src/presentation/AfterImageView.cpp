#include "presentation/AfterImageView.h"

#include "platform/display/view/Painter.h"

namespace kestro {

void AfterImageView::setImageFrame(const Picture& image, const Rect& frame)
{
    m_image = image;
    m_imgFrame = frame;
}

void AfterImageView::drawRect(Painter& painter, const Rect&)
{
    if (!m_image.isNull()) painter.draw(m_image, m_imgFrame, Compositing::SourceOver, 1.0);
}

} // namespace kestro

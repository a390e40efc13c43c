#include "presentation/KTWebView.h"

#include "platform/display/view/Painter.h"

namespace kestro {

void KTWebView::drawRect(Painter& painter, const Rect& rect)
{
    painter.fill(rect, Qt::yellow);
}

} // namespace kestro

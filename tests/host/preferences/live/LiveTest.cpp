#include "host/preferences/live/LiveTest.h"

#include "platform/display/view/Painter.h"

namespace kestro {

void OptionSaver::drawRect(Painter& painter, const Rect& rect)
{
    painter.fill(rect, Qt::red);
}

} // namespace kestro

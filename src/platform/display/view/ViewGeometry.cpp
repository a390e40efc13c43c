#include "platform/display/view/ViewGeometry.h"

#include "platform/display/view/View.h"
#include "platform/display/view/Window.h"

namespace kestro {

Rect globalRect(const View& view)
{
    const Rect rect = view.convertToWindow(view.bounds());
    const Window* window = view.window();
    return window ? rect.movedBy(window->frame().origin) : rect;
}

Rect visibleGlobalRect(const View& view)
{
    Rect rect = globalRect(view);
    for (const View* above = view.superview(); above; above = above->superview())
        rect = intersectionRect(rect, globalRect(*above));
    const Window* window = view.window();
    return window ? intersectionRect(rect, window->frame()) : rect;
}

} // namespace kestro

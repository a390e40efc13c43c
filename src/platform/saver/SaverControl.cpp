#include "platform/saver/SaverControl.h"

#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Window.h"
#include "platform/saver/ScreenSaverView.h"

namespace kestro {

SaverControl::~SaverControl() = default;

SaverControl* SaverControl::of(ScreenSaverView& view, const Screen& screen)
{
    if (auto* own = dynamic_cast<SaverControl*>(&view)) return own;
    for (const Window* window : screen.windows())
        if (auto* above = dynamic_cast<SaverControl*>(window->contentView())) return above;
    return nullptr;
}

} // namespace kestro

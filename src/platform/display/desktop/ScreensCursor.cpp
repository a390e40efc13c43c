#include "platform/display/desktop/ScreensCursor.h"

#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/Surface.h"

namespace kestro {

void ScreensCursor::apply(bool hidden)
{
    for (const Screen* screen : m_desktop.screens())
        screen->surface().setCursorHidden(hidden);
}

} // namespace kestro

#include "platform/display/ScreensCursor.h"

#include "platform/display/Desktop.h"
#include "platform/display/Screen.h"
#include "platform/display/Surface.h"

namespace kestro {

void ScreensCursor::apply(bool hidden)
{
    for (const Screen* screen : m_desktop.screens())
        screen->surface().setCursorHidden(hidden);
}

} // namespace kestro

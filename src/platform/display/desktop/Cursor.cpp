#include "platform/display/desktop/Cursor.h"

namespace kestro {

void Cursor::hide()
{
    if (++m_hides == 1) apply(true);
}

void Cursor::unhide()
{
    if (m_hides == 0) return;
    if (--m_hides == 0) apply(false);
}

} // namespace kestro

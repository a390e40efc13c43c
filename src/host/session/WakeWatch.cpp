#include "host/session/WakeWatch.h"

#include <cmath>

namespace kestro {

bool WakeWatch::endsSaver(InputEvent::Kind kind, Point position)
{
    if (kind != InputEvent::Kind::Motion) return true;
    if (!m_firstSeen) m_firstSeen = position;
    return std::hypot(position.x - m_firstSeen->x, position.y - m_firstSeen->y) > slack;
}

} // namespace kestro

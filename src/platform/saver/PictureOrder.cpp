#include "platform/saver/PictureOrder.h"

#include "platform/saver/ScreenSaverFunctions.h"

namespace kestro {

std::optional<QString> PictureOrder::next()
{
    if (m_left.isEmpty()) return {};
    const int count = static_cast<int>(m_left.size());
    int place = SSRandomIntBetween(m_random, 0, count - 1);
    if (m_left[place] == m_shown) place = (place + 1) % count;
    return m_left.takeAt(place);
}

} // namespace kestro

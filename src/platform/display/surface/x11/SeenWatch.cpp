#include "platform/display/surface/x11/SeenWatch.h"

#include <utility>

namespace kestro {

SeenWatch::SeenWatch(std::uint32_t window, std::uint32_t container, std::function<void(bool)> onSeen)
    : m_onSeen(std::move(onSeen))
    , m_visibility(window, container,
                   [this](bool isInSight) {
                       m_isInSight = isInSight;
                       settle();
                   })
    , m_power([this](bool) { settle(); })
{
}

void SeenWatch::setWatching(bool isWatching)
{
    m_isWatching = isWatching;
    m_power.setLooking(isWatching && m_isInSight);
}

void SeenWatch::settle()
{
    m_power.setLooking(m_isWatching && m_isInSight);
    m_onSeen(m_isInSight && m_power.isOn());
}

} // namespace kestro

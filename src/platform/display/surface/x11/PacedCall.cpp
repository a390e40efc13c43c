#include "platform/display/surface/x11/PacedCall.h"

namespace kestro {

PacedCall::PacedCall(std::chrono::milliseconds span, std::function<void()> action)
    : m_action(std::move(action))
{
    m_later.setSingleShot(true);
    m_later.setInterval(span);
    QObject::connect(&m_later, &QTimer::timeout, &m_later, [this] { act(); });
}

void PacedCall::ask()
{
    if (m_later.isActive()) return;
    const bool isLongAgo = !m_sinceLast.isValid() || m_sinceLast.hasExpired(m_later.interval());
    if (isLongAgo)
        act();
    else
        m_later.start();
}

void PacedCall::act()
{
    m_sinceLast.start();
    m_action();
}

} // namespace kestro

#include "platform/session/AskedFact.h"

#include <utility>

namespace kestro {

void AskedFact::ask(std::function<void()> onAnswer)
{
    m_waiting.push_back(std::move(onAnswer));
    if (!m_isLooking) begin();
}

void AskedFact::refresh()
{
    if (m_isLooking)
        m_isStale = true;
    else
        begin();
}

void AskedFact::begin()
{
    m_isLooking = true;
    m_isStale = false;
    look([this](const QList<Hindrance>& found) { looked(found); });
}

void AskedFact::looked(const QList<Hindrance>& found)
{
    m_isLooking = false;
    const auto waiting = std::exchange(m_waiting, {});
    keep(found);
    for (const auto& onAnswer : waiting)
        onAnswer();
    if (m_isStale && !m_isLooking) begin();
}

} // namespace kestro

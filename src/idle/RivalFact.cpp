#include "idle/RivalFact.h"

#include <utility>

namespace kestro {

RivalFact::RivalFact(const QDBusConnection& sessionBus, const QByteArray& xDisplay, SeenHandler onSeen)
    : m_rivals(sessionBus, xDisplay)
    , m_onSeen(std::move(onSeen))
{
    m_rivals.setChangeHandler([this] { m_onSeen(m_rivals.rival()); });
}

void RivalFact::ask(std::function<void()> onAnswer)
{
    m_rivals.look([this, onAnswer = std::move(onAnswer)] {
        m_onSeen(m_rivals.rival());
        onAnswer();
    });
}

} // namespace kestro

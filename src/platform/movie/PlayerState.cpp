#include "platform/movie/PlayerState.h"

#include "platform/base/Match.h"

namespace kestro {

bool PlayerState::plays() const
{
    return std::visit(Match{[](const Loading& loading) { return loading.plays; },
                            [](const Moving& moving) { return moving.plays; },
                            [](const Playing&) { return true; }, [](const auto&) { return false; }},
                      m_state);
}

double PlayerState::position() const
{
    return std::visit(Match{[](const Loading& loading) { return loading.to; },
                            [](const Moving& moving) { return moving.to; },
                            [](const auto& stands) { return stands.at; }},
                      m_state);
}

bool PlayerState::isUnderway() const
{
    return std::holds_alternative<Loading>(m_state) || std::holds_alternative<Moving>(m_state);
}

bool PlayerState::isGoing() const
{
    return !std::holds_alternative<Loading>(m_state) && plays();
}

void PlayerState::load(double to)
{
    if (hasFailed()) return;
    ++m_move;
    m_state = Loading{to, plays(), false};
}

bool PlayerState::opened()
{
    const auto* const loading = std::get_if<Loading>(&m_state);
    if (!loading) return false;
    const bool isSought = loading->isSought;
    m_state = Moving{loading->to, loading->plays, isSought ? Step::Ordered : Step::Underway};
    if (isSought) ++m_move;
    return isSought;
}

void PlayerState::moveTo(double to)
{
    ++m_move;
    m_state = Moving{to, plays(), Step::Ordered};
}

bool PlayerState::goTo(double to)
{
    if (hasFailed()) return false;
    if (auto* const loading = std::get_if<Loading>(&m_state)) {
        loading->to = to;
        loading->isSought = true;
        return false;
    }
    moveTo(to);
    return true;
}

void PlayerState::play()
{
    std::visit(Match{[](Loading& loading) { loading.plays = true; },
                     [](Moving& moving) { moving.plays = true; },
                     [this](const Placed& placed) {
                         m_state = Playing{placed.at, placed.at};
                     },
                     [this](const Stopped& stopped) {
                         m_state = Playing{stopped.at, stopped.sentTo};
                     },
                     [](const auto&) {}},
               m_state);
}

void PlayerState::stop()
{
    std::visit(Match{[](Loading& loading) { loading.plays = false; },
                     [](Moving& moving) { moving.plays = false; },
                     [this](const Playing& playing) {
                         m_state = Stopped{playing.at, playing.sentTo};
                     },
                     [](const auto&) {}},
               m_state);
}

void PlayerState::accepted(std::uint32_t move)
{
    auto* const moving = std::get_if<Moving>(&m_state);
    if (moving && move == m_move && moving->step == Step::Ordered) moving->step = Step::Accepted;
}

bool PlayerState::refused(std::uint32_t move)
{
    const auto* const moving = std::get_if<Moving>(&m_state);
    if (!moving || move != m_move) return false;
    arrive(*moving);
    return true;
}

void PlayerState::seekBegan()
{
    auto* const moving = std::get_if<Moving>(&m_state);
    if (moving && moving->step == Step::Accepted) moving->step = Step::Underway;
}

bool PlayerState::restarted()
{
    if (std::holds_alternative<Loading>(m_state) || hasFailed()) return false;
    const auto* const moving = std::get_if<Moving>(&m_state);
    if (!moving) return true;
    if (moving->step != Step::Underway) return false;
    arrive(*moving);
    return true;
}

bool PlayerState::tookTooLong()
{
    const auto* const moving = std::get_if<Moving>(&m_state);
    if (moving) arrive(*moving);
    return moving != nullptr;
}

void PlayerState::arrive(const Moving& moving)
{
    const double at = moving.to;
    if (moving.plays)
        m_state = Playing{at, at};
    else
        m_state = Placed{at};
}

/// The frame at the place that it was sent to may have begun before it.
static double placeOf(double time, double sentTo, double frameSeconds)
{
    const bool isThePictureThere = time < sentTo && time > sentTo - frameSeconds;
    return isThePictureThere ? sentTo : time;
}

void PlayerState::timeIs(double time, double frameSeconds)
{
    std::visit(Match{[&](Stopped& stopped) { stopped.at = placeOf(time, stopped.sentTo, frameSeconds); },
                     [&](Playing& playing) { playing.at = placeOf(time, playing.sentTo, frameSeconds); },
                     [](const auto&) {}},
               m_state);
}

void PlayerState::fail()
{
    m_state = Failed{position()};
}

} // namespace kestro

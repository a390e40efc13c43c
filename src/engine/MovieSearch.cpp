#include "engine/MovieSearch.h"

#include <utility>

namespace kestro {

MovieSearch::MovieSearch(Purpose purpose, double now, MakeFirst makeFirst, std::function<void(int)> found,
                         MakePick makePick)
    : m_purpose(purpose)
    , m_began(now)
    , m_makeFirst(std::move(makeFirst))
    , m_found(std::move(found))
    , m_makePick(std::move(makePick))
{
}

MoviePick::State MovieSearch::step()
{
    if (m_makeFirst) m_first = std::exchange(m_makeFirst, nullptr)();
    if (m_first) {
        m_first->step();
        if (!m_first->isOver()) return MoviePick::State::Searching;
        if (!m_first->isMovieExists()) return MoviePick::State::Nothing;
        m_found(m_first->index());
        m_first.reset();
    }
    if (!m_pick) m_pick = m_makePick();
    return m_pick->step();
}

} // namespace kestro

#include "engine/MoviePick.h"

#include "engine/EntryOpener.h"
#include "platform/movie/QTMovie.h"

#include <utility>

namespace kestro {

namespace {

/// Entries that fail at once, in a long list, still leave the event loop room to turn.
constexpr int mostTriesAStep = 64;

} // namespace

MoviePick::MoviePick(std::unique_ptr<EntryOrder> order, EntryOpener& opener, Options options)
    : m_order(std::move(order))
    , m_opener(opener)
    , m_options(std::move(options))
{
}

MoviePick::~MoviePick()
{
    if (auto* movie = triedMovie()) movie->whenSettled({});
}

QTMovie* MoviePick::triedMovie() const
{
    const auto* movie = m_tried ? std::get_if<std::shared_ptr<QTMovie>>(&m_content) : nullptr;
    return movie ? movie->get() : nullptr;
}

MoviePick::State MoviePick::step()
{
    for (int tries = 0; m_state == State::Searching && tries < mostTriesAStep; ++tries) {
        if (!m_tried && !tryNext()) break;
        if (isOpening()) break;
        settle();
    }
    return m_state;
}

bool MoviePick::tryNext()
{
    m_tried = m_order->next();
    if (!m_tried && m_options.makeSecondOrder) {
        m_order = std::exchange(m_options.makeSecondOrder, {})();
        m_tried = m_order->next();
    }
    if (!m_tried) {
        m_state = State::Nothing;
        return false;
    }
    m_content = m_opener.open(*m_tried);
    if (auto* movie = triedMovie(); movie && m_options.wake) movie->whenSettled(m_options.wake);
    return true;
}

bool MoviePick::isOpening()
{
    const auto* movie = triedMovie();
    const bool isWaitedFor = m_tried->isLocalFile() || m_options.waitsForServers;
    return movie && isWaitedFor && movie->state() == QTMovie::State::Loading;
}

// What was being opened either opened or failed.
void MoviePick::settle()
{
    auto* movie = triedMovie();
    if (movie) movie->whenSettled({});
    if (movie && movie->state() == QTMovie::State::Failed) {
        m_opener.recordFailure(*m_tried);
        m_content = {};
    }
    m_tried.reset();
    if (isEmpty(m_content)) return m_order->pass();
    if (m_order->take()) {
        m_opener.opened(m_content);
        m_state = State::Found;
        return;
    }
    m_content = {};
    m_opener.dropCacheMovie();
}

} // namespace kestro

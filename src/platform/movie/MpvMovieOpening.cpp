// How a local movie is opened, and how it is told that a movie is no longer loading.
// Tested by LocalMovieTest.

#include "platform/base/FileURL.h"
#include "platform/movie/MpvMovie.h"

#include <algorithm>

namespace kestro {

void MpvMovie::open()
{
    const QString path = localPath(m_url).value_or(QString());
    auto look = DetachedTask::start<Result<MovieFacts, MovieFault>>(
        QStringLiteral("movie ") + path, m_options.longestProbe,
        [probe = m_options.probe, path] { return probe(path); },
        [this](const std::optional<Result<MovieFacts, MovieFault>>& facts) { takeFacts(facts); });
    if (look)
        m_state = Opening{.look = std::move(look)};
    else
        m_state = Broken{};
}

void MpvMovie::takeFacts(const std::optional<Result<MovieFacts, MovieFault>>& facts)
{
    const Opening wishes = std::move(std::get<Opening>(m_state));
    tellSettled();
    if (!facts || !*facts) {
        m_state = Broken{.at = wishes.at};
        return;
    }
    m_facts = facts->value();
    m_state = Lying{knownSeconds() > 0 ? std::min(wishes.at, knownSeconds()) : wishes.at};
    if (wishes.plays)
        play();
    else if (wishes.isShown)
        beShown();
}

void MpvMovie::whenSettled(std::function<void()> settled)
{
    m_settled = state() == State::Loading ? std::move(settled) : nullptr;
}

/// Posted: whoever hears of it may let go of the movie.
void MpvMovie::tellSettled()
{
    if (auto settled = std::exchange(m_settled, nullptr))
        QMetaObject::invokeMethod(&m_context, std::move(settled), Qt::QueuedConnection);
}

} // namespace kestro

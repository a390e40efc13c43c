// How a local movie is opened, or the copy of a remote one, and how it is told that a movie is no longer
// loading. Tested by LocalMovieTest and KeptMovieTest.

#include "platform/base/FileURL.h"
#include "platform/base/KeptMovies.h"
#include "platform/base/Log.h"
#include "platform/base/ShownURL.h"
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

/// False where there is no copy to look for.
bool MpvMovie::openKept()
{
    if (m_options.keptMovies.isEmpty() || !canBeKept(m_url)) return false;
    const QString path = keptMovieFile(m_options.keptMovies, m_url);
    auto look = DetachedTask::start<std::optional<KeptMovie>>(
        QStringLiteral("kept movie ") + path, m_options.longestProbe, [path] { return openKeptMovie(path); },
        [this](const std::optional<std::optional<KeptMovie>>& kept) {
            takeKept(kept.value_or(std::nullopt));
        });
    if (!look) return false;
    m_state = Opening{.look = std::move(look)};
    return true;
}

/// Without a copy its server is asked, as if none had been looked for.
void MpvMovie::takeKept(const std::optional<KeptMovie>& kept)
{
    if (kept) {
        m_source = QUrl::fromLocalFile(keptMovieFile(m_options.keptMovies, m_url));
        m_hold = kept->hold;
        logLine(QStringLiteral("Plays the kept copy of %1").arg(shownURL(m_url)));
        return takeFacts(Result<MovieFacts, MovieFault>(kept->facts));
    }
    const Opening wishes = std::move(std::get<Opening>(m_state));
    if (!start(wishes.at)) return tellSettled();
    if (wishes.plays) play();
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

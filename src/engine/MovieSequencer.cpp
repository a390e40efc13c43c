#include "engine/MovieSequencer.h"

#include "platform/base/Log.h"
#include "platform/base/StoredValue.h"
#include "platform/movie/MovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"
#include "platform/saver/ScreenSaverFunctions.h"
#include "settings/MovieURL.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <utility>

namespace kestro {

namespace {

/// Seconds between two tries once a whole cycle found nothing.
constexpr double fruitlessPause = 1.0;

std::optional<qsizetype> indexOfName(const QList<QUrl>& list, const QString& name)
{
    for (qsizetype i = 0; i < list.size(); ++i)
        if (lastPathComponent(list[i]) == name) return i;
    return std::nullopt;
}

} // namespace

MovieSequencer::MovieSequencer(const Sources& sources, std::function<void(double)> wait,
                               std::function<void()> searching)
    : m_sources(sources)
    , m_wait(std::move(wait))
    , m_searching(std::move(searching))
{
}

MovieContent MovieSequencer::newNextMovie(bool isFirst)
{
    auto content = m_sources.settings.isRandomMode() ? nextAtRandom(isFirst) : nextInOrder(isFirst);
    if (isFirst && m_sources.settings.canContinue()) resumePosition(content);
    return content;
}

MovieContent MovieSequencer::openEntry(const QUrl& url)
{
    if (!isValidURL(url)) return {};
    const bool isWebContent = upperCasePathExtension(url) == u"SWF";
    if (isWebContent && m_sources.playsWebContent()) return url;

    auto movie = isWebContent ? nullptr : m_sources.movies.movieWithURL(url);
    if (!movie) {
        recordFailure(url);
        return {};
    }
    if (m_sources.settings.fadeoutEffect() && !m_sources.isPreview) m_cacheMovie = movie->copyForStills();
    return movie;
}

void MovieSequencer::recordFailure(const QUrl& url)
{
    logLine(QStringLiteral("Failed to load movie:%1").arg(absoluteString(url)));
    m_sources.playlist.addFailedURL(url);
}

// Lets the desktop go on after a try that failed; answers whether the search, which began after that many
// stops, may go on too.
bool MovieSequencer::breathe(double seconds, int stops)
{
    if (!isOver(stops)) m_wait(seconds);
    return !isOver(stops);
}

void MovieSequencer::dropListWithTrailers()
{
    if (m_sources.playlist.hasAutoTrailers()) m_sources.playlist.dropFileList();
}

MovieContent MovieSequencer::nextAtRandom(bool isFirst)
{
    Search search{m_sources.playlist.fileList(), m_stops, isFirst};
    while (!search.list.isEmpty() && !isOver(search.stops)) {
        if (m_randomList.isEmpty()) m_randomList = search.list;
        search.openedAny = false;
        auto content = drawCycle(search);
        if (!isEmpty(content)) return content;
        if (search.openedAny || isOver(search.stops)) continue;
        search.pause = fruitlessPause;
        m_searching();
    }
    return {};
}

// Draws until an entry is taken or the cycle is used up.
MovieContent MovieSequencer::drawCycle(Search& search)
{
    while (!m_randomList.isEmpty()) {
        const auto resumed = resumeIndex(m_randomList, search.isFirst);
        const int last = static_cast<int>(m_randomList.size()) - 1;
        const auto index = resumed ? *resumed : SSRandomIntBetween(m_sources.random, 0, last);
        const QUrl url = m_randomList[index];
        auto content = openEntry(url);
        m_randomList.removeAt(index);
        if (m_randomList.isEmpty()) dropListWithTrailers();
        if (isEmpty(content)) {
            if (!breathe(search.pause, search.stops)) break;
            continue;
        }
        search.openedAny = true;
        const int position = static_cast<int>(search.list.indexOf(url));
        if (refusesRepeat(search, position)) continue;
        m_sources.playlist.setCurIdx(position);
        return content;
    }
    return {};
}

// The entry that plays now is refused once a pick, so that it only comes again where chance insists.
bool MovieSequencer::refusesRepeat(Search& search, int position)
{
    if (search.isFirst || position != m_sources.playlist.curIdx()) return false;
    if (std::exchange(search.guardFired, true)) return false;
    m_cacheMovie.reset();
    return true;
}

MovieContent MovieSequencer::nextInOrder(bool isFirst)
{
    const QList<QUrl> list = m_sources.playlist.fileList();
    if (list.isEmpty()) return {};
    const auto isIndex = [&](qsizetype index) { return index >= 0 && index < list.size(); };
    qsizetype start = resumeIndex(list, isFirst).value_or(m_sources.playlist.curIdx());
    if (!isIndex(start)) start = 0;

    const int stops = m_stops;
    MovieContent content;
    qsizetype next = start;
    do {
        content = openEntry(list[next]);
        if (++next == list.size()) {
            dropListWithTrailers();
            next = 0;
        }
    } while (isEmpty(content) && next != start && breathe(0, stops));
    if (isEmpty(content) && !m_stopped && isOver(stops)) return {}; // another pick has gone on from there
    m_sources.playlist.setCurIdx(static_cast<int>(next));
    return content;
}

std::optional<qsizetype> MovieSequencer::resumeIndex(const QList<QUrl>& list, bool isFirst) const
{
    if (!isFirst || !m_sources.settings.canContinue()) return std::nullopt;
    const auto name = m_sources.settings.store().defaultsForKey(QStringLiteral("LastMovie"));
    return name ? indexOfName(list, name->toString()) : std::nullopt;
}

void MovieSequencer::resumePosition(const MovieContent& content)
{
    const auto* movie = std::get_if<std::shared_ptr<QTMovie>>(&content);
    const auto stored = m_sources.settings.store().defaultsForKey(QStringLiteral("LastPos"));
    if (!movie || !stored) return;
    const int position = intValue(*stored);
    if (GetMovieDuration(**movie) >= position) SetMovieTimeValue(**movie, position);
}

} // namespace kestro

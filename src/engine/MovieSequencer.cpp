#include "engine/MovieSequencer.h"

#include "engine/BagOrder.h"
#include "engine/MovieSteps.h"
#include "platform/base/Clock.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

constexpr double lookInterval = 60; ///< seconds between two looks at what time of the day it is

} // namespace

MovieSequencer::MovieSequencer(const EntrySources& sources)
    : m_sources(sources)
    , m_entries(sources)
{
}

std::unique_ptr<MoviePick> MovieSequencer::newNextMovie(std::optional<int> played,
                                                        const std::optional<QString>& resumed,
                                                        MoviePick::Options options)
{
    m_entries.beginPick();
    m_inTime = MoviesInTime(m_sources.playlist.marks(), m_sources.day);
    if (!m_inTime.areAll())
        options.makeSecondOrder = [this, played, resumed] { return order(played, resumed, {}); };
    return std::make_unique<MoviePick>(order(played, resumed, m_inTime), m_entries, std::move(options));
}

bool MovieSequencer::isTimeForOthers()
{
    return !m_inTime.areAll() && MoviesInTime(m_sources.playlist.marks(), m_sources.day) != m_inTime;
}

std::optional<double> MovieSequencer::nextLook() const
{
    const auto rests = m_entries.endOfRests();
    if (m_inTime.areAll()) return rests;
    const double soon = m_sources.clock.now() + lookInterval;
    return std::min(rests.value_or(soon), soon);
}

std::unique_ptr<MoviePick> MovieSequencer::previousMovie(MovieSteps& steps, MoviePick::Options options)
{
    m_entries.beginPick();
    return std::make_unique<MoviePick>(steps.wayBack(m_sources.playlist, !m_sources.settings.isRandomMode()),
                                       m_entries, std::move(options));
}

// The bag holds what is left of the list, in its order.
void MovieSequencer::takeNews(const QList<QUrl>& before)
{
    if (m_randomList.isEmpty()) return;
    QSet<QUrl> drawn;
    auto left = m_randomList.cbegin();
    for (const QUrl& entry : before) {
        if (left != m_randomList.cend() && *left == entry)
            ++left;
        else
            drawn.insert(entry);
    }
    m_randomList = m_sources.playlist.fileList();
    m_randomList.removeIf([&drawn](const QUrl& entry) { return drawn.contains(entry); });
}

bool MovieSequencer::remembers() const
{
    return !m_sources.isPreview && !m_sources.settings.store().leavesNothing();
}

std::unique_ptr<EntryOrder> MovieSequencer::order(std::optional<int> played,
                                                  const std::optional<QString>& resumed,
                                                  const MoviesInTime& inTime)
{
    Playlist& playlist = m_sources.playlist;
    if (!m_sources.settings.isRandomMode())
        return std::make_unique<SequentialOrder>(playlist, resumed, inTime);
    if (ShuffleRecord* const record = m_sources.shuffle; record != nullptr && remembers())
        return std::make_unique<BagOrder>(playlist, m_sources.random, *record, resumed, played, inTime);
    return std::make_unique<RandomOrder>(playlist, m_sources.random, m_randomList, resumed, played, inTime);
}

} // namespace kestro

#include "engine/MovieSequencer.h"

#include "engine/BagOrder.h"
#include "engine/MovieSteps.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QSet>

#include <utility>

namespace kestro {

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
    return std::make_unique<MoviePick>(order(played, resumed), m_entries, std::move(options));
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
                                                  const std::optional<QString>& resumed)
{
    Playlist& playlist = m_sources.playlist;
    if (!m_sources.settings.isRandomMode()) return std::make_unique<SequentialOrder>(playlist, resumed);
    if (ShuffleRecord* const record = m_sources.shuffle; record != nullptr && remembers())
        return std::make_unique<BagOrder>(playlist, m_sources.random, *record, resumed, played);
    return std::make_unique<RandomOrder>(playlist, m_sources.random, m_randomList, resumed, played);
}

} // namespace kestro

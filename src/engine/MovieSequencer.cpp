#include "engine/MovieSequencer.h"

#include "settings/Playlist.h"
#include "settings/Settings.h"

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

std::unique_ptr<EntryOrder> MovieSequencer::order(std::optional<int> played,
                                                  const std::optional<QString>& resumed)
{
    Playlist& playlist = m_sources.playlist;
    if (!m_sources.settings.isRandomMode()) return std::make_unique<SequentialOrder>(playlist, resumed);
    return std::make_unique<RandomOrder>(playlist, m_sources.random, m_randomList, resumed, played);
}

} // namespace kestro

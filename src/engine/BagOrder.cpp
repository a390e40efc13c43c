#include "engine/BagOrder.h"

#include "platform/saver/ScreenSaverFunctions.h"
#include "settings/Playlist.h"

#include <algorithm>
#include <array>

namespace kestro {

BagOrder::BagOrder(Playlist& playlist, Random& random, ShuffleRecord& record,
                   const std::optional<QString>& resumed, std::optional<int> played, MoviesInTime inTime)
    : m_playlist(playlist)
    , m_random(random)
    , m_record(record)
    , m_list(playlist.fileList())
    , m_inTime(std::move(inTime))
    , m_marks(record.marksOf(m_list))
    , m_resumed(indexOfName(m_list, resumed))
    , m_played(played)
    , m_isTried(static_cast<std::size_t>(m_list.size()))
{
    if (m_resumed && !m_inTime.has(*m_resumed)) m_resumed.reset();
}

BagOrder::~BagOrder()
{
    m_record.keepFailures();
}

std::optional<QUrl> BagOrder::next()
{
    if (!m_drawn) m_drawn = m_resumed ? m_resumed : draw();
    return m_drawn ? std::optional(m_list[*m_drawn]) : std::nullopt;
}

ShuffleRecord::Mark BagOrder::mark(qsizetype index) const
{
    return (*m_marks)[static_cast<std::size_t>(index)];
}

BagOrder::Rank BagOrder::rankOf(qsizetype index) const
{
    if (m_isTried[static_cast<std::size_t>(index)] || !m_inTime.has(index)) return Tried;
    if (index == m_played) return Played;
    const bool isHopeless = m_record.isHopeless(mark(index));
    if (m_record.contents().seen.contains(mark(index))) return isHopeless ? SeenHopeless : Seen;
    return isHopeless ? UnseenHopeless : Unseen;
}

std::optional<qsizetype> BagOrder::draw()
{
    std::array<int, ranks> counts{};
    for (qsizetype index = 0; index < m_list.size(); ++index)
        ++counts[rankOf(index)];
    const auto best = std::find_if(counts.begin(), counts.end(), [](int count) { return count > 0; });
    const auto rank = static_cast<Rank>(best - counts.begin());
    if (rank >= Tried) return {};
    int left = SSRandomIntBetween(m_random, 0, *best - 1);
    qsizetype index = 0;
    while (rankOf(index) != rank || left-- > 0)
        ++index;
    return index;
}

void BagOrder::pass()
{
    m_passed.insert(mark(*m_drawn));
    m_record.addFailure(mark(*m_drawn));
    leave();
}

bool BagOrder::take()
{
    const bool isTaken =
        m_record.change([this](auto& contents) { return claim(contents, m_drawn == m_resumed); });
    if (isTaken) m_playlist.setCurIdx(static_cast<int>(*m_drawn));
    leave();
    return isTaken;
}

// False where somebody else has taken it meanwhile, while there are others to take.
bool BagOrder::claim(ShuffleRecord::Contents& contents, bool isResumed) const
{
    const auto claimed = mark(*m_drawn);
    contents.seen.insert(m_passed.begin(), m_passed.end());
    contents.failures.erase(claimed);
    if (contents.seen.contains(claimed) && !isResumed && !beginAnew(contents)) return false;
    contents.seen.insert(claimed);
    return true;
}

// False where somebody else has begun anew meanwhile. What is in no list any more is forgotten with the rest.
bool BagOrder::beginAnew(ShuffleRecord::Contents& contents) const
{
    std::unordered_set<ShuffleRecord::Mark> kept;
    for (qsizetype index = 0; index < m_list.size(); ++index) {
        const bool isSeen = contents.seen.contains(mark(index));
        if (m_inTime.has(index) && !isSeen) return false;
        if (!m_inTime.has(index) && isSeen) kept.insert(mark(index));
    }
    contents.seen = std::move(kept);
    return true;
}

void BagOrder::leave()
{
    m_isTried[static_cast<std::size_t>(*m_drawn)] = true;
    m_drawn.reset();
    m_resumed.reset();
}

} // namespace kestro

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
    , m_said(playlist.marks())
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

// Of the first or the second time that it comes in a cycle.
ShuffleRecord::Mark BagOrder::mark(qsizetype index, int time) const
{
    const auto first = (*m_marks)[static_cast<std::size_t>(index)];
    return time == 0 ? first : ShuffleRecord::secondOf(first);
}

// How often it is still to come.
int BagOrder::unseen(qsizetype index, const ShuffleRecord::Contents& contents) const
{
    int left = 0;
    for (int time = 0; time < times(index); ++time)
        left += contents.seen.contains(mark(index, time)) ? 0 : 1;
    return left;
}

BagOrder::Rank BagOrder::rankOf(qsizetype index) const
{
    if (m_isTried[static_cast<std::size_t>(index)] || !m_inTime.has(index)) return Tried;
    if (index == m_played) return Played;
    const bool isHopeless = m_record.isHopeless(mark(index));
    if (unseen(index, m_record.contents()) == 0) return isHopeless ? SeenHopeless : Seen;
    return isHopeless ? UnseenHopeless : Unseen;
}

// What was seen is to come in the cycle that begins with it.
int BagOrder::weightOf(qsizetype index) const
{
    const int left = unseen(index, m_record.contents());
    return left > 0 ? left : times(index);
}

std::optional<qsizetype> BagOrder::draw()
{
    std::array<int, ranks> weights{};
    for (qsizetype index = 0; index < m_list.size(); ++index)
        weights[rankOf(index)] += weightOf(index);
    const auto best = std::find_if(weights.begin(), weights.end(), [](int weight) { return weight > 0; });
    const auto rank = static_cast<Rank>(best - weights.begin());
    if (rank >= Tried) return {};
    int left = SSRandomIntBetween(m_random, 0, *best - 1);
    for (qsizetype index = 0; index < m_list.size(); ++index) {
        if (rankOf(index) != rank) continue;
        left -= weightOf(index);
        if (left < 0) return index;
    }
    return {};
}

void BagOrder::pass()
{
    for (int time = 0; time < times(*m_drawn); ++time)
        m_passed.insert(mark(*m_drawn, time));
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
    contents.seen.insert(m_passed.begin(), m_passed.end());
    contents.failures.erase(mark(*m_drawn));
    if (unseen(*m_drawn, contents) == 0 && !isResumed && !beginAnew(contents)) return false;
    const int time = contents.seen.contains(mark(*m_drawn)) ? times(*m_drawn) - 1 : 0;
    contents.seen.insert(mark(*m_drawn, time));
    return true;
}

// False where somebody else has begun anew meanwhile. What is in no list any more is forgotten with the rest.
bool BagOrder::beginAnew(ShuffleRecord::Contents& contents) const
{
    std::unordered_set<ShuffleRecord::Mark> kept;
    for (qsizetype index = 0; index < m_list.size(); ++index) {
        const bool isSeen =
            index == m_played ? contents.seen.contains(mark(index)) : unseen(index, contents) == 0;
        if (m_inTime.has(index) && !isSeen) return false;
        for (int time = 0; time < times(index) && !m_inTime.has(index); ++time)
            if (contents.seen.contains(mark(index, time))) kept.insert(mark(index, time));
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

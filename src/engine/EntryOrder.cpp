#include "engine/EntryOrder.h"

#include "platform/base/URLKind.h"
#include "platform/saver/ScreenSaverFunctions.h"
#include "settings/MovieURL.h"
#include "settings/Playlist.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// A list that holds newest trailers is built anew before the next pick.
void endCycle(Playlist& playlist)
{
    if (playlist.hasAutoTrailers()) playlist.dropFileList();
}

} // namespace

std::optional<qsizetype> indexOfName(const QList<QUrl>& list, const std::optional<QString>& name)
{
    if (!name) return std::nullopt;
    for (qsizetype i = 0; i < list.size(); ++i)
        if (lastPathComponent(list[i]) == *name) return i;
    return std::nullopt;
}

SequentialOrder::SequentialOrder(Playlist& playlist, const std::optional<QString>& resumed,
                                 MoviesInTime inTime)
    : m_playlist(playlist)
    , m_list(playlist.fileList())
    , m_inTime(std::move(inTime))
    , m_start(indexOfName(m_list, resumed).value_or(playlist.curIdx()))
    , m_isOver(m_list.isEmpty())
{
    if (m_start < 0 || m_start >= m_list.size()) m_start = 0;
    m_next = m_start;
}

std::optional<QUrl> SequentialOrder::next()
{
    while (!m_isOver && !m_inTime.has(m_next))
        advance();
    if (m_isOver) return std::nullopt;
    return m_list[m_next];
}

bool SequentialOrder::take()
{
    advance();
    m_playlist.setCurIdx(static_cast<int>(m_next));
    return true;
}

void SequentialOrder::advance()
{
    if (++m_next == m_list.size()) {
        endCycle(m_playlist);
        m_next = 0;
    }
    m_isOver = m_next == m_start;
    if (m_isOver) m_playlist.setCurIdx(static_cast<int>(m_start));
}

RandomOrder::RandomOrder(Playlist& playlist, Random& random, QList<QUrl>& bag, std::optional<QString> resumed,
                         std::optional<int> refused, MoviesInTime inTime)
    : m_playlist(playlist)
    , m_random(random)
    , m_bag(bag)
    , m_list(playlist.fileList())
    , m_inTime(std::move(inTime))
    , m_resumed(std::move(resumed))
    , m_refused(refused)
{
    sort();
    if (isUsedUp()) refill();
}

std::optional<QUrl> RandomOrder::next()
{
    if (m_drawn) return m_bag[*m_drawn];
    if (isUsedUp()) {
        if (isOver()) return std::nullopt;
        refill();
    }
    draw();
    return m_bag[*m_drawn];
}

void RandomOrder::refill()
{
    m_bag = m_list;
    sort();
    m_isWholeCycle = true;
    m_openedAny = false;
}

// A movie that is in the list more than once is in its time where one of its entries is.
void RandomOrder::sort()
{
    if (m_inTime.areAll()) return;
    QSet<QUrl> later;
    for (qsizetype i = 0; i < m_list.size(); ++i)
        if (!m_inTime.has(i)) later.insert(m_list[i]);
    for (qsizetype i = 0; i < m_list.size(); ++i)
        if (m_inTime.has(i)) later.remove(m_list[i]);
    m_isLater.clear();
    for (const QUrl& entry : m_bag)
        m_isLater.push_back(later.contains(entry));
    m_later = std::count(m_isLater.begin(), m_isLater.end(), true);
}

bool RandomOrder::isLater(qsizetype index) const
{
    return m_later > 0 && m_isLater[static_cast<std::size_t>(index)];
}

void RandomOrder::draw()
{
    m_drawn = indexOfName(m_bag, m_resumed);
    if (!m_drawn || isLater(*m_drawn)) m_drawn = drawInTime();
}

qsizetype RandomOrder::drawInTime()
{
    int left = SSRandomIntBetween(m_random, 0, static_cast<int>(m_bag.size() - m_later) - 1);
    if (m_later == 0) return left;
    qsizetype index = 0;
    while (isLater(index) || left-- > 0)
        ++index;
    return index;
}

void RandomOrder::advance()
{
    m_bag.removeAt(*m_drawn);
    if (!m_isLater.empty()) m_isLater.erase(m_isLater.begin() + *m_drawn);
    m_drawn.reset();
    if (isUsedUp()) endCycle(m_playlist);
}

bool RandomOrder::take()
{
    m_openedAny = true;
    const int position = static_cast<int>(m_list.indexOf(m_bag[*m_drawn]));
    advance();
    if (position == m_refused) {
        m_refused.reset();
        return false;
    }
    m_playlist.setCurIdx(position);
    return true;
}

} // namespace kestro

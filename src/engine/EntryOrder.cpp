#include "engine/EntryOrder.h"

#include "platform/base/URLKind.h"
#include "platform/saver/ScreenSaverFunctions.h"
#include "settings/MovieURL.h"
#include "settings/Playlist.h"

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

SequentialOrder::SequentialOrder(Playlist& playlist, const std::optional<QString>& resumed)
    : m_playlist(playlist)
    , m_list(playlist.fileList())
    , m_start(indexOfName(m_list, resumed).value_or(playlist.curIdx()))
    , m_isOver(m_list.isEmpty())
{
    if (m_start < 0 || m_start >= m_list.size()) m_start = 0;
    m_next = m_start;
}

std::optional<QUrl> SequentialOrder::next()
{
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
                         std::optional<int> refused)
    : m_playlist(playlist)
    , m_random(random)
    , m_bag(bag)
    , m_list(playlist.fileList())
    , m_resumed(std::move(resumed))
    , m_refused(refused)
{
    if (m_bag.isEmpty()) refill();
}

std::optional<QUrl> RandomOrder::next()
{
    if (m_drawn) return m_bag[*m_drawn];
    if (m_bag.isEmpty()) {
        if (isOver()) return std::nullopt;
        refill();
    }
    draw();
    return m_bag[*m_drawn];
}

void RandomOrder::refill()
{
    m_bag = m_list;
    m_isWholeCycle = true;
    m_openedAny = false;
}

void RandomOrder::draw()
{
    m_drawn = indexOfName(m_bag, m_resumed);
    if (!m_drawn) m_drawn = SSRandomIntBetween(m_random, 0, static_cast<int>(m_bag.size()) - 1);
}

void RandomOrder::advance()
{
    m_bag.removeAt(*m_drawn);
    m_drawn.reset();
    if (m_bag.isEmpty()) endCycle(m_playlist);
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

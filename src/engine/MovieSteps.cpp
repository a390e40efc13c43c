#include "engine/MovieSteps.h"

#include "settings/Playlist.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

class WayBack final : public EntryOrder {
public:
    WayBack(Playlist& playlist, bool inOrder, QList<QUrl>& shown)
        : m_playlist(playlist)
        , m_inOrder(inOrder)
        , m_list(playlist.fileList())
        , m_shown(shown)
        , m_next(shown.size() - 2)
    {
    }

    [[nodiscard]] std::optional<QUrl> next() override
    {
        while (m_next >= 0 && !m_list.contains(m_shown[m_next]))
            --m_next;
        return m_next >= 0 ? std::optional(m_shown[m_next]) : std::nullopt;
    }

    void pass() override { --m_next; }

    [[nodiscard]] bool take() override
    {
        const auto position = m_list.indexOf(m_shown[m_next]);
        m_shown.resize(m_next + 1);
        m_playlist.setCurIdx(static_cast<int>(m_inOrder ? (position + 1) % m_list.size() : position));
        return true;
    }

private:
    Playlist& m_playlist;
    bool m_inOrder;
    const QList<QUrl> m_list;
    QList<QUrl>& m_shown;
    qsizetype m_next; ///< in m_shown; below 0 once there is none left
};

} // namespace

void MovieSteps::ask(MovieStep step)
{
    const qsizetype before = m_shown.size() - 1 + m_underWay + m_asked;
    if (step == MovieStep::Next)
        m_asked = std::min<int>(m_asked + 1, longestWay);
    else if (before > 0)
        --m_asked;
}

std::optional<MovieStep> MovieSteps::take()
{
    if (m_asked == 0) return {};
    m_underWay = m_asked > 0 ? 1 : -1;
    m_asked -= m_underWay;
    return m_underWay > 0 ? MovieStep::Next : MovieStep::Previous;
}

void MovieSteps::shows(const QUrl& entry)
{
    if (std::exchange(m_underWay, 0) == 0) m_asked = 0;
    if (!m_shown.isEmpty() && m_shown.last() == entry) return;
    m_shown.append(entry);
    if (m_shown.size() > longestWay + 1) m_shown.removeFirst();
}

std::unique_ptr<EntryOrder> MovieSteps::wayBack(Playlist& playlist, bool inOrder)
{
    return std::make_unique<WayBack>(playlist, inOrder, m_shown);
}

} // namespace kestro

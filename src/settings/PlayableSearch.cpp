#include "settings/PlayableSearch.h"

#include "platform/base/DetachedTask.h"
#include "platform/base/FileLook.h"
#include "platform/base/FileURL.h"

#include <chrono>
#include <utility>

namespace kestro {

namespace {

constexpr std::chrono::seconds longestLook{2};

} // namespace

PlayableSearch::PlayableSearch(QList<QUrl> list, std::function<void()> wake)
    : m_list(std::move(list))
    , m_wake(std::move(wake))
{
}

PlayableSearch::~PlayableSearch() = default;

void PlayableSearch::step()
{
    while (!isOver() && !m_task) {
        const QUrl& entry = m_list[m_next];
        if (entry.isLocalFile())
            look(entry);
        else
            looked(true);
    }
}

void PlayableSearch::look(const QUrl& url)
{
    const QString path = localPath(url).value_or(QString());
    if (!path.isEmpty()) {
        m_task = DetachedTask::start<bool>(
            QStringLiteral("exists:") + path, longestLook, [path] { return isFileThere(path); },
            [this](std::optional<bool> isThere) {
                const auto wake = m_wake; // which may destroy this
                looked(isThere.value_or(false));
                wake();
            });
    }
    if (!m_task) looked(false);
}

void PlayableSearch::looked(bool isThere)
{
    m_task.reset();
    if (isThere) m_index = static_cast<int>(m_next);
    ++m_next;
}

} // namespace kestro

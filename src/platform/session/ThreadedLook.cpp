#include "platform/session/ThreadedLook.h"

namespace kestro {

ThreadedLook::ThreadedLook(QString key, std::function<QList<Hindrance>()> work)
    : m_key(std::move(key))
    , m_work(std::move(work))
{
}

void ThreadedLook::look(Found found)
{
    const auto done = [found](const std::optional<QList<Hindrance>>& answer) {
        found(answer.value_or(QList<Hindrance>()));
    };
    m_task = DetachedTask::start<QList<Hindrance>>(m_key, std::chrono::milliseconds(patience), m_work, done);
    if (!m_task) found({});
}

} // namespace kestro

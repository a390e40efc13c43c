#include "host/doctor/Examination.h"

namespace kestro {

SlowExamination::SlowExamination(QString title, std::chrono::milliseconds longest,
                                 std::function<Findings()> look)
    : Examination(std::move(title))
    , m_longest(longest)
    , m_look(std::move(look))
{
}

void SlowExamination::begin(Done done)
{
    const auto finish = [this, done](const std::optional<Findings>& found) {
        done(found ? *found : Findings{noAnswer(m_longest)});
    };
    m_task = DetachedTask::start<Findings>(QStringLiteral("doctor ") + title(), m_longest, m_look, finish);
    if (!m_task) finish({});
}

Finding noAnswer(std::chrono::milliseconds longest)
{
    return broken(QStringLiteral("no answer within %1 seconds").arg(double(longest.count()) / 1000),
                  QStringLiteral("see whether its disk, server or driver hangs"));
}

} // namespace kestro

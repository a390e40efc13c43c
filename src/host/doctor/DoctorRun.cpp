#include "host/doctor/DoctorRun.h"

#include <utility>

namespace kestro {

DoctorRun::DoctorRun(Examinations examinations, std::chrono::milliseconds longest)
    : m_examinations(std::move(examinations))
    , m_found(m_examinations.size())
    , m_longest(longest)
    , m_awaited(m_examinations.size())
{
    m_bound.setSingleShot(true);
    m_bound.setInterval(longest);
    m_bound.callOnTimeout([this] { finish(); });
}

void DoctorRun::begin(Told told)
{
    m_told = std::move(told);
    m_bound.start();
    for (std::size_t index = 0; index < m_examinations.size(); ++index)
        m_examinations[index]->begin([this, index](Findings findings) { take(index, std::move(findings)); });
}

void DoctorRun::take(std::size_t index, Findings findings)
{
    if (m_found[index].has_value()) return;
    m_found[index] = std::move(findings);
    if (--m_awaited == 0) finish();
}

void DoctorRun::finish()
{
    m_bound.stop();
    QList<Chapter> chapters;
    for (std::size_t index = 0; index < m_examinations.size(); ++index)
        chapters.append(
            {m_examinations[index]->title(), m_found[index].value_or(Findings{noAnswer(m_longest)})});
    if (const Told told = std::exchange(m_told, nullptr)) told(chapters);
}

} // namespace kestro

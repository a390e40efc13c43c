#include "engine/RetrySchedule.h"

#include <algorithm>

namespace kestro {

namespace {

constexpr double shortRest = 1;
constexpr double longRest = 30;
constexpr double restPerEntry = 0.005; ///< many times what looking for a file takes
constexpr double hopefulSpan = 60;     ///< so long after the first failure the rests are short

} // namespace

void RetrySchedule::failed(double now, qsizetype entries)
{
    if (!m_first) m_first = now;
    const double least = now - *m_first < hopefulSpan ? shortRest : longRest;
    m_next = now + std::clamp(restPerEntry * static_cast<double>(entries), least, longRest);
}

} // namespace kestro

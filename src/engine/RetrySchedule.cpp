#include "engine/RetrySchedule.h"

namespace kestro {

namespace {

constexpr double shortPause = 1;
constexpr double longPause = 30;
constexpr double hopefulSpan = 60; ///< so long after the first failure the pauses are short

} // namespace

void RetrySchedule::failed(double now)
{
    if (!m_first) m_first = now;
    m_next = now + (now - *m_first < hopefulSpan ? shortPause : longPause);
}

} // namespace kestro

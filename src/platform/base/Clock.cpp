#include "platform/base/Clock.h"

#include <cassert>
#include <chrono>
#include <cmath>

namespace kestro {

double SystemClock::now() const
{
    using Seconds = std::chrono::duration<double>;
    static const auto start = std::chrono::steady_clock::now();
    return Seconds(std::chrono::steady_clock::now() - start).count();
}

void ManualClock::advance(double seconds)
{
    assert(seconds >= 0.0);
    m_now += seconds;
    m_wallTime = m_wallTime.addMSecs(std::llround(seconds * 1000));
}

} // namespace kestro

#include "platform/display/desktop/ManualTimerSource.h"

#include "platform/base/Clock.h"

#include <algorithm>

namespace kestro {

namespace {

/// Turning a clock in many small steps falls short of their sum by less than this.
constexpr double tolerance = 1e-9;
constexpr double shortestSpan = 0.001;

} // namespace

class ManualTimerSource::ManualTimer final : public Timer {
public:
    ManualTimer(ManualTimerSource& source, double seconds, std::function<void()> action)
        : m_source(source)
        , m_span(std::max(seconds, shortestSpan))
        , m_start(source.m_clock.now())
        , m_action(std::make_shared<std::function<void()>>(std::move(action)))
    {
        m_source.m_timers.push_back(this);
    }
    ~ManualTimer() override { std::erase(m_source.m_timers, this); }

    /// Counted from the start, so that no error adds up.
    [[nodiscard]] double due() const { return m_start + m_span * static_cast<double>(m_turns + 1); }

    void takeTurn()
    {
        ++m_turns;
        fire();
    }

    void fire() override
    {
        // Kept alive here: the action may destroy its timer.
        const auto action = m_action;
        (*action)();
    }

private:
    ManualTimerSource& m_source;
    double m_span;
    double m_start;
    long long m_turns = 0;
    std::shared_ptr<std::function<void()>> m_action;
};

ManualTimerSource::ManualTimerSource(ManualClock& clock)
    : m_clock(clock)
{
}

ManualTimerSource::~ManualTimerSource() = default;

void ManualTimerSource::advance(double seconds)
{
    const double end = m_clock.now() + seconds;
    while (ManualTimer* timer = nextDue(end + tolerance)) {
        turnClockTo(timer->due());
        timer->takeTurn();
    }
    turnClockTo(end);
}

std::unique_ptr<Timer> ManualTimerSource::repeating(double seconds, std::function<void()> action)
{
    return std::make_unique<ManualTimer>(*this, seconds, std::move(action));
}

ManualTimerSource::ManualTimer* ManualTimerSource::nextDue(double latest) const
{
    const auto isEarlier = [](const ManualTimer* a, const ManualTimer* b) { return a->due() < b->due(); };
    const auto next = std::min_element(m_timers.begin(), m_timers.end(), isEarlier);
    return next != m_timers.end() && (*next)->due() <= latest ? *next : nullptr;
}

void ManualTimerSource::turnClockTo(double time)
{
    // An action may have turned it further already.
    m_clock.advance(std::max(0.0, time - m_clock.now()));
}

} // namespace kestro

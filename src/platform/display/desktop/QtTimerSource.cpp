#include "platform/display/desktop/QtTimerSource.h"

#include <QTimer>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

int milliseconds(double seconds)
{
    return static_cast<int>(std::lround(std::clamp(seconds, 0.0, 1e6) * 1000));
}

class QtTimer final : public Timer {
public:
    QtTimer(double seconds, std::function<void()> action)
        : m_action(std::make_shared<std::function<void()>>(std::move(action)))
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { fire(); });
        m_timer.start(std::max(1, milliseconds(seconds)));
    }

    void fire() override
    {
        // Kept alive here: the action may destroy its timer.
        const auto action = m_action;
        (*action)();
    }

private:
    QTimer m_timer;
    std::shared_ptr<std::function<void()>> m_action;
};

} // namespace

std::unique_ptr<Timer> QtTimerSource::repeating(double seconds, std::function<void()> action)
{
    return std::make_unique<QtTimer>(seconds, std::move(action));
}

} // namespace kestro

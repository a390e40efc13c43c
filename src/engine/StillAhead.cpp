#include "engine/StillAhead.h"

#include "engine/CaptureThread.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/movie/MovieTime.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

namespace kestro {

namespace {

constexpr double shortestLead = 1;
constexpr double longestLead = 10;
constexpr double leadOfSpan = 1.5; ///< what the last still took, times this, …
constexpr double spareLead = 0.25; ///< … and so much more
/// A still this much off is as good as asked for; one further off than the other is not the picture that
/// showed.
constexpr double sameMoment = 0.1;
constexpr double nearMoment = 0.25;

/// How far apart two pictures are; a movie that loops goes from its last to its first.
double secondsApart(double a, double b, double duration)
{
    const double apart = std::abs(a - b);
    return duration > apart ? std::min(apart, duration - apart) : apart;
}

template <typename Asked>
bool isNear(const std::optional<Asked>& asked, const StillAhead::Moment& moment, double most)
{
    return asked && asked->copy.lock() == moment.copy &&
           secondsApart(asked->seconds, moment.seconds, moment.duration) < most;
}

} // namespace

/// Where the capture thread puts the still.
struct StillAhead::Answer {
    std::mutex mutex;
    std::optional<Picture> picture;

    void set(const Picture& taken)
    {
        const std::lock_guard lock(mutex);
        picture = taken;
    }

    [[nodiscard]] std::optional<Picture> get()
    {
        const std::lock_guard lock(mutex);
        return picture;
    }
};

StillAhead::StillAhead(CaptureThread& captures, const Clock& clock)
    : m_captures(captures)
    , m_clock(clock)
{
}

StillAhead::~StillAhead() = default;

double StillAhead::lead()
{
    lookForAnswer();
    return std::clamp(leadOfSpan * m_lastTook + spareLead, shortestLead, longestLead);
}

void StillAhead::ask(const Moment& moment)
{
    lookForAnswer();
    if (!moment.copy || isNear(m_pending, moment, sameMoment) || isNear(m_ready, moment, sameMoment)) return;
    const auto answer = std::make_shared<Answer>();
    const auto time = static_cast<std::int32_t>(movieTimeFromSeconds(moment.seconds).timeValue);
    if (!m_captures.start({moment.copy, time}, [answer](const Picture& still) { answer->set(still); }))
        return;
    m_pending = Request{moment.copy, moment.seconds, m_clock.now(), answer};
}

Picture StillAhead::take(const Moment& moment)
{
    lookForAnswer();
    const auto ready = std::exchange(m_ready, std::nullopt);
    if (moment.copy && isNear(ready, moment, nearMoment)) return ready->picture;
    if (!moment.copy || !m_pending || m_pending->copy.lock() != moment.copy) return {};
    m_lastTook = std::max(m_lastTook, m_clock.now() - m_pending->askedAt);
    logLine(QStringLiteral("movie doesn't have a image."));
    return {};
}

/// One that was given up is never answered.
void StillAhead::lookForAnswer()
{
    if (!m_pending) return;
    const bool isOver = !m_captures.isBusy();
    if (auto picture = m_pending->answer->get()) {
        m_lastTook = m_clock.now() - m_pending->askedAt;
        m_ready = Ready{m_pending->copy, m_pending->seconds, std::move(*picture)};
        m_pending.reset();
    } else if (isOver) {
        m_pending.reset();
    }
}

} // namespace kestro

#include "platform/movie/BackwardsPlayer.h"

#include "platform/base/Clock.h"
#include "platform/base/PostTo.h"
#include "platform/display/desktop/Timer.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/BackwardsWorker.h"
#include "platform/movie/MovieTeardown.h"
#include "platform/movie/StillScaler.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace kestro {

// Timers count in milliseconds: a frame is due when that little is left of the one before.
static constexpr double timerSlack = 0.001;
// Frames that are later than this are passed over; it takes a main thread that was held up.
static constexpr double latest = 0.1;

BackwardsPlayer::BackwardsPlayer(const BackwardsSetup& setup, BackwardsListener& listener, const Clock& clock,
                                 TimerSource& timers)
    : m_listener(listener)
    , m_clock(clock)
    , m_timers(timers)
    , m_memory(std::make_shared<FrameMemory>(setup.mostBytes))
    , m_scaler(std::make_unique<StillScaler>())
    , m_longestWait(3 * std::chrono::duration<double>(setup.longestRead).count())
{
    startWorker(setup);
}

void BackwardsPlayer::startWorker(const BackwardsSetup& setup)
{
    const auto changed = [this] { postTo(m_context, [this] { workerHasAnswer(); }); };
    m_worker = std::make_shared<BackwardsWorker>(
        std::make_unique<ReverseDecoder>(setup.url, m_memory, setup.longestRead), m_memory, changed);
    try {
        m_thread = std::thread([worker = m_worker] { worker->run(); });
    } catch (const std::system_error&) {
        postTo(m_context, [this] { fail(QStringLiteral("no thread to decode it")); });
    }
}

BackwardsPlayer::~BackwardsPlayer()
{
    m_worker->quit();
    if (!m_thread.joinable()) return;
    const auto thread = std::make_shared<std::thread>(std::move(m_thread));
    tearDownLater([thread, worker = std::move(m_worker)]() mutable {
        thread->join();
        worker.reset();
    });
}

void BackwardsPlayer::prepare(double seconds)
{
    forget(seconds);
    m_worker->startAt(seconds);
}

void BackwardsPlayer::rest()
{
    m_plays = false;
    forget(m_position);
    m_worker->rest();
}

void BackwardsPlayer::forget(double seconds)
{
    m_timer.reset();
    m_current.reset();
    m_isFirst = false;
    m_isLate = true;
    m_position = seconds;
    m_since = seconds;
}

void BackwardsPlayer::play()
{
    if (std::exchange(m_plays, true)) return;
    m_start = m_clock.now();
    if (!m_isLate) return schedule();
    postTo(m_context, [this] { workerHasAnswer(); });
}

void BackwardsPlayer::pause()
{
    if (!m_plays) return;
    m_since = here();
    m_plays = false;
    m_timer.reset();
}

/// Where its clock is.
double BackwardsPlayer::here() const
{
    return m_plays && !m_isLate ? m_since - (m_clock.now() - m_start) : m_since;
}

/// Where the frame that shows is over.
double BackwardsPlayer::nextStep() const
{
    return m_isFirst ? 0 : std::max(0.0, m_current->seconds());
}

void BackwardsPlayer::schedule()
{
    const double left = std::max(here() - nextStep(), timerSlack);
    m_timer = m_timers.repeating(left, [this] { timeIsUp(); });
}

void BackwardsPlayer::timeIsUp()
{
    if (here() > nextStep() + timerSlack) return schedule();
    step();
}

bool BackwardsPlayer::isOverdue() const
{
    return m_plays && here() < nextStep() - latest;
}

void BackwardsPlayer::workerHasAnswer()
{
    if (m_isLate) step();
}

void BackwardsPlayer::step()
{
    m_timer.reset();
    if (m_isFirst) return comeToBeginning();
    auto taken = m_worker->take();
    if (std::holds_alternative<BackwardsWorker::NotYet>(taken)) return wait();
    if (std::exchange(m_isLate, false)) m_start = m_clock.now();
    if (auto* const error = std::get_if<Error>(&taken)) return fail(error->message);
    if (auto* const picture = std::get_if<KeptFrame>(&taken)) return show(std::move(*picture));
    m_isFirst = true;
    if (m_plays) schedule();
}

/// Its clock stands meanwhile. A disk that never answers holds the worker for ever.
void BackwardsPlayer::wait()
{
    m_since = here();
    m_isLate = true;
    if (!m_plays) return;
    m_timer = m_timers.repeating(m_longestWait,
                                 [this] { fail(QStringLiteral("its pictures do not come any more")); });
}

void BackwardsPlayer::show(KeptFrame picture)
{
    if (m_current) m_position = picture.seconds();
    m_current = std::make_unique<KeptFrame>(std::move(picture));
    if (isOverdue()) return step();
    if (m_plays) schedule();
    m_listener.backwardsHasFrame();
}

void BackwardsPlayer::comeToBeginning()
{
    m_plays = false;
    m_position = 0;
    m_since = 0;
    m_listener.backwardsReachedBeginning();
}

void BackwardsPlayer::fail(const QString& reason)
{
    m_timer.reset();
    pause();
    m_isLate = true;
    m_listener.backwardsFailed(reason);
}

void BackwardsPlayer::setDrawnSize(QSize size)
{
    m_worker->setDrawnSize(size);
}

bool BackwardsPlayer::render(const PixelTarget& target)
{
    if (!m_current) return false;
    setDrawnSize({target.width, target.height});
    return m_scaler->draw(m_current->frame(), target, m_current->rotation());
}

std::size_t BackwardsPlayer::peakBytes() const
{
    return m_memory->peak();
}

} // namespace kestro

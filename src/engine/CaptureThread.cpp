#include "engine/CaptureThread.h"

#include "platform/base/Log.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <system_error>
#include <utility>

namespace kestro {

namespace {

/// A picture may stand that much longer than it should, and nobody sees it.
constexpr std::chrono::milliseconds moment{40};

} // namespace

/// What both threads know of a still that is being taken.
struct CaptureThread::Capture {
    Still still;
    Taken taken;
    std::stop_source stop;
    std::mutex mutex; ///< of the next
    bool isOver = false;
    std::condition_variable over;

    void run()
    {
        const Picture picture = movieImage(*still.copy, still.time, stop.get_token());
        still = {}; // whoever knows that it is over may be the only one to hold the copy
        const std::lock_guard lock(mutex);
        if (!stop.stop_requested()) taken(picture);
        taken = {};
        isOver = true;
        over.notify_all();
    }

    [[nodiscard]] bool waitAMoment()
    {
        std::unique_lock lock(mutex);
        return over.wait_for(lock, moment, [this] { return isOver; });
    }
};

CaptureThread::CaptureThread(Spawn spawn)
    : m_spawn(std::move(spawn))
{
}

CaptureThread::~CaptureThread()
{
    cancel();
}

void CaptureThread::runDetached(std::function<void()> run)
{
    std::thread(std::move(run)).detach();
}

bool CaptureThread::start(Still still, Taken taken)
{
    if (isBusy()) return false;
    auto capture = std::make_shared<Capture>();
    capture->still = std::move(still);
    capture->taken = std::move(taken);
    try {
        m_spawn([capture] { capture->run(); });
    } catch (const std::system_error& error) {
        logLine(QStringLiteral("No thread for a still: %1").arg(QString::fromLocal8Bit(error.what())));
        return false;
    }
    m_capture = std::move(capture);
    return true;
}

bool CaptureThread::isBusy() const
{
    if (!m_capture) return false;
    const std::lock_guard lock(m_capture->mutex);
    return !m_capture->isOver;
}

void CaptureThread::wait()
{
    if (m_capture && !m_capture->waitAMoment()) cancel();
}

void CaptureThread::cancel()
{
    const auto capture = std::exchange(m_capture, nullptr);
    if (!capture) return;
    {
        const std::lock_guard lock(capture->mutex);
        capture->stop.request_stop();
    }
    static_cast<void>(capture->waitAMoment());
}

Picture movieImage(StillMovie& copy, std::int32_t time, std::stop_token stop)
{
    Picture still = GetMoviePict(copy, time, stop);
    if (still.isNull() && !stop.stop_requested()) logLine(QStringLiteral("movie doesn't have a image."));
    return still;
}

} // namespace kestro

#include "platform/movie/BackwardsWorker.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace kestro {

using std::chrono::steady_clock;

// What is decoded ahead need not reach farther.
static constexpr double farEnough = 4;
// The next stretch may take so many times as long to decode as the longest of those before.
static constexpr double inTime = 1.5;

BackwardsWorker::BackwardsWorker(std::unique_ptr<ReverseDecoder> decoder, std::shared_ptr<FrameMemory> memory,
                                 std::function<void()> changed)
    : m_decoder(std::move(decoder))
    , m_memory(std::move(memory))
    , m_changed(std::move(changed))
{
}

void BackwardsWorker::run()
{
    std::unique_lock lock(m_mutex);
    while (!m_quits) {
        if (mayDecode())
            decode(lock);
        else
            m_wakeUp.wait(lock);
    }
}

bool BackwardsWorker::mayDecode() const
{
    const bool hasMore = std::holds_alternative<NotYet>(m_behind);
    return !m_order.rests && hasMore && !isEnough();
}

/// Half of the memory is for the stretch that is being shown, half for the next. But that one must come in
/// time; what it keeps moves on while it is decoded, so beginning early makes it hardly shorter.
bool BackwardsWorker::isEnough() const
{
    if (m_frames.empty()) return false;
    const double left = m_frames.back().seconds() - m_frames.front().seconds();
    const bool lasts = left > inTime * m_longestDecoding;
    return lasts && (left > farEnough || m_memory->used() > m_memory->most() / 2);
}

void BackwardsWorker::decode(std::unique_lock<std::mutex>& lock)
{
    const std::stop_token stop = m_order.stop.get_token();
    if (std::exchange(m_order.isNew, false)) m_decoder->startAt(m_order.start);
    m_decoder->setDrawnSize(m_drawn);
    lock.unlock();
    const auto before = steady_clock::now();
    auto frames = m_decoder->next(stop);
    const std::chrono::duration<double> taken = steady_clock::now() - before;
    lock.lock();
    m_longestDecoding = std::max(m_longestDecoding, taken.count());
    if (stop.stop_requested()) return; // of an order that was taken back
    store(std::move(frames));
    if (m_changed) m_changed();
}

void BackwardsWorker::store(Result<ReverseDecoder::Frames> frames)
{
    if (!frames) {
        m_behind = frames.failure();
        return;
    }
    if (frames.value().empty()) m_behind = Beginning{};
    auto& earlier = frames.value();
    while (!earlier.empty()) {
        m_frames.push_front(std::move(earlier.back()));
        earlier.pop_back();
    }
}

void BackwardsWorker::startAt(double seconds)
{
    give({.start = seconds, .rests = false, .isNew = true});
}

void BackwardsWorker::setDrawnSize(QSize size)
{
    const std::lock_guard lock(m_mutex);
    m_drawn = size;
}

void BackwardsWorker::rest()
{
    give({});
}

void BackwardsWorker::give(Order order)
{
    const std::lock_guard lock(m_mutex);
    m_order.stop.request_stop();
    m_order = std::move(order);
    m_frames.clear();
    m_behind = NotYet{};
    m_wakeUp.notify_all();
}

void BackwardsWorker::quit()
{
    give({});
    const std::lock_guard lock(m_mutex);
    m_quits = true;
    m_changed = {};
    m_wakeUp.notify_all();
}

BackwardsWorker::Taken BackwardsWorker::take()
{
    const std::lock_guard lock(m_mutex);
    if (m_frames.empty()) return std::visit([](const auto& behind) -> Taken { return behind; }, m_behind);
    KeptFrame picture = std::move(m_frames.back());
    m_frames.pop_back();
    m_wakeUp.notify_all();
    return picture;
}

bool BackwardsWorker::hasAnswer()
{
    const std::lock_guard lock(m_mutex);
    return !m_frames.empty() || !std::holds_alternative<NotYet>(m_behind);
}

} // namespace kestro

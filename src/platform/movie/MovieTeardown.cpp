#include "platform/movie/MovieTeardown.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace kestro {

static constexpr std::chrono::milliseconds longestWait{200};

namespace {

/// Counts the teardowns that are under way.
class PendingTeardowns final {
public:
    void begin()
    {
        const std::lock_guard lock(m_mutex);
        ++m_count;
    }
    void end()
    {
        const std::lock_guard lock(m_mutex);
        --m_count;
        m_changed.notify_all();
    }
    void waitForAll()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, longestWait, [this] { return m_count == 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
};

/// Never destroyed: a thread that is left at exit may still use it.
PendingTeardowns& pending()
{
    static PendingTeardowns* const teardowns = [] {
        std::atexit(finishMovieTeardown);
        return new PendingTeardowns;
    }();
    return *teardowns;
}

} // namespace

void tearDownLater(std::function<void()> free)
{
    PendingTeardowns& teardowns = pending();
    teardowns.begin();
    try {
        std::thread([&teardowns, free] {
            free();
            teardowns.end();
        }).detach();
    } catch (const std::system_error&) { // no thread to be had: better late than never
        free();
        teardowns.end();
    }
}

void finishMovieTeardown()
{
    pending().waitForAll();
}

} // namespace kestro

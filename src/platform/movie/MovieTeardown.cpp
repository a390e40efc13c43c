#include "platform/movie/MovieTeardown.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds longestWait{200};

/// The teardowns that are under way or wait for a thread.
class Teardowns final {
public:
    void add(std::function<void()> free)
    {
        std::unique_lock lock(m_mutex);
        m_waiting.push_back(std::move(free));
        if (m_threads == mostTeardownThreads) return;
        ++m_threads;
        try {
            std::thread([this] { work(std::unique_lock(m_mutex)); }).detach();
        } catch (const std::system_error&) { // no thread to be had: better late than never
            if (m_threads == 1) return work(std::move(lock));
            --m_threads; // the others will come to it
        }
    }
    void waitForAll()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, longestWait, [this] { return m_threads == 0; });
    }

private:
    void work(std::unique_lock<std::mutex> lock)
    {
        while (!m_waiting.empty()) {
            auto free = std::move(m_waiting.front());
            m_waiting.pop_front();
            lock.unlock();
            free();
            free = nullptr; // what it held goes here, too
            lock.lock();
        }
        --m_threads;
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_waiting;
    int m_threads = 0;
};

/// Never destroyed: a thread that is left at exit may still use it.
Teardowns& teardowns()
{
    static Teardowns* const all = [] {
        std::atexit(finishMovieTeardown);
        return new Teardowns;
    }();
    return *all;
}

} // namespace

void tearDownLater(std::function<void()> free)
{
    teardowns().add(std::move(free));
}

void finishMovieTeardown()
{
    teardowns().waitForAll();
}

} // namespace kestro

#pragma once

#include "platform/movie/StillMovie.h"

#include <QColor>
#include <QImage>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace kestro {

/// How a movie's stills are taken where a test wants a say in it: what was asked for is noted, and a still
/// may be held up until it is let go. Any thread.
class HeldStills final {
public:
    /// One that is held up is only given up when told to stop where it `heedsStop`.
    explicit HeldStills(bool heedsStop = true, QSize size = {64, 36})
        : m_heedsStop(heedsStop)
        , m_size(size)
    {
    }

    /// Returns once nobody is held up any more, those included that were left to themselves.
    ~HeldStills()
    {
        std::unique_lock lock(m_mutex);
        m_holds = false;
        m_change.notify_all();
        m_change.wait(lock, [this] { return m_inside == 0; });
    }
    HeldStills(const HeldStills&) = delete;
    HeldStills& operator=(const HeldStills&) = delete;

    void hold()
    {
        const std::lock_guard lock(m_mutex);
        m_holds = true;
    }
    void letGo()
    {
        const std::lock_guard lock(m_mutex);
        m_holds = false;
        m_change.notify_all();
    }

    Picture take(MovieTime time, const std::stop_token& stop)
    {
        std::unique_lock lock(m_mutex);
        const Inside inside(*this);
        m_asked.push_back(time);
        m_threads.push_back(std::this_thread::get_id());
        if (m_heedsStop)
            m_change.wait(lock, stop, [this] { return !m_holds; });
        else
            m_change.wait(lock, [this] { return !m_holds; });
        if (m_heedsStop && stop.stop_requested()) return {};
        QImage image(m_size, QImage::Format_RGB32);
        image.fill(Qt::white);
        return {image, {static_cast<float>(m_size.width()), static_cast<float>(m_size.height())}};
    }

    /// The times of the stills asked for, in order, and the threads that they were asked for on.
    [[nodiscard]] std::vector<MovieTime> asked() const
    {
        const std::lock_guard lock(m_mutex);
        return m_asked;
    }
    [[nodiscard]] std::vector<std::thread::id> threads() const
    {
        const std::lock_guard lock(m_mutex);
        return m_threads;
    }

private:
    /// Counts who is in take(), with the lock held.
    struct Inside {
        explicit Inside(HeldStills& stills)
            : all(stills)
        {
            ++all.m_inside;
        }
        ~Inside()
        {
            --all.m_inside;
            all.m_change.notify_all();
        }
        HeldStills& all;
    };

    const bool m_heedsStop;
    const QSize m_size;
    mutable std::mutex m_mutex;
    std::condition_variable_any m_change;
    bool m_holds = false;
    int m_inside = 0;
    std::vector<MovieTime> m_asked;
    std::vector<std::thread::id> m_threads;
};

/// A copy of a movie whose stills are taken so.
class HeldStillMovie final : public StillMovie {
public:
    explicit HeldStillMovie(HeldStills& stills)
        : m_stills(stills)
    {
    }
    void setStillSize(int, int) override {}
    [[nodiscard]] Picture still(MovieTime time, std::stop_token stop) override
    {
        return m_stills.take(time, stop);
    }

private:
    HeldStills& m_stills;
};

} // namespace kestro

#pragma once

#include "platform/movie/StillMovie.h"

#include <QColor>
#include <QImage>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace kestro {

/// How a movie's stills are taken where a test wants a say in it: what was asked for is noted, and a still
/// may be held up until it is let go. Copies are one and the same: a thread that was left to itself has one
/// of its own. Any thread.
class HeldStills final {
public:
    /// One that is held up is only given up when told to stop where it `obeysStop`.
    explicit HeldStills(bool obeysStop = true, QSize size = {64, 36})
        : m_state(std::make_shared<State>())
    {
        m_state->obeysStop = obeysStop;
        m_state->size = size;
    }

    void hold() const
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->holds = true;
    }
    void letGo() const
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->holds = false;
        m_state->change.notify_all();
    }

    [[nodiscard]] Picture take(MovieTime time, const std::stop_token& stop) const
    {
        const auto state = m_state;
        std::unique_lock lock(state->mutex);
        state->asked.push_back(time);
        state->threads.push_back(std::this_thread::get_id());
        const auto isLetGo = [&state] { return !state->holds; };
        if (state->obeysStop)
            state->change.wait(lock, stop, isLetGo);
        else
            state->change.wait(lock, isLetGo);
        if (state->obeysStop && stop.stop_requested()) return {};
        QImage image(state->size, QImage::Format_RGB32);
        image.fill(Qt::white);
        return {image, {static_cast<float>(state->size.width()), static_cast<float>(state->size.height())}};
    }

    /// The times of the stills asked for, in order, and the threads that they were asked for on.
    [[nodiscard]] std::vector<MovieTime> asked() const
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->asked;
    }
    [[nodiscard]] std::vector<std::thread::id> threads() const
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->threads;
    }

private:
    struct State {
        bool obeysStop = true;
        QSize size;
        std::mutex mutex;
        std::condition_variable_any change;
        bool holds = false;
        std::vector<MovieTime> asked;
        std::vector<std::thread::id> threads;
    };

    std::shared_ptr<State> m_state;
};

/// A copy of a movie whose stills are taken so.
class HeldStillMovie final : public StillMovie {
public:
    explicit HeldStillMovie(HeldStills stills)
        : m_stills(std::move(stills))
    {
    }
    void setStillSize(int, int) override {}
    [[nodiscard]] Picture still(MovieTime time, std::stop_token stop) override
    {
        return m_stills.take(time, stop);
    }

private:
    HeldStills m_stills;
};

} // namespace kestro

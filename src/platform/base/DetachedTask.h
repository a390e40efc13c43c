#pragma once

#include <QString>
#include <QTimer>

#include <any>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace kestro {

/// Work that may never come back, such as a look at a file on a disk that died: it runs on a thread of its
/// own, which is left behind when it takes too long, and what it answers is told on the event loop. Works of
/// one key are one work: who asks while it is under way shares its answer, and as long as it is overdue no
/// other thread is started for that key, so that asking again and again does not pile threads up. Owned by
/// whoever waits, who hears nothing after destroying it. Main thread; a QCoreApplication must be there.
class DetachedTask final {
public:
    /// Starts `work`, or joins what is under way for `key`, which names the kind of work and what it looks
    /// at. `work` owns all that it uses: it may outlive everything else. `done` is called once, later: with
    /// the answer, or with none when `longest` has passed without one; it may destroy the task. Null when it
    /// is refused at once: the work of that key is overdue, or there is no thread to be had.
    template <typename Answer>
    [[nodiscard]] static std::unique_ptr<DetachedTask>
    start(const QString& key, std::chrono::milliseconds longest,
          std::type_identity_t<std::function<Answer()>> work,
          std::type_identity_t<std::function<void(std::optional<Answer>)>> done)
    {
        return startAny(
            key, longest, [work = std::move(work)] { return std::any(work()); },
            [done = std::move(done)](const std::any& came) {
                const auto* const answer = std::any_cast<Answer>(&came);
                done(answer ? std::optional<Answer>(*answer) : std::nullopt);
            });
    }
    ~DetachedTask();
    DetachedTask(const DetachedTask&) = delete;
    DetachedTask& operator=(const DetachedTask&) = delete;

private:
    using Work = std::function<std::any()>;
    using Done = std::function<void(const std::any&)>;
    struct Job;
    class Jobs;

    [[nodiscard]] static std::unique_ptr<DetachedTask>
    startAny(const QString& key, std::chrono::milliseconds longest, Work work, Done done);
    DetachedTask(std::shared_ptr<Job> job, std::chrono::milliseconds longest, Done done);
    void leave();
    void finish(const std::any& answer);

    std::shared_ptr<Job> m_job; ///< with the others that wait for it, and its thread; null once finished
    QTimer m_bound;
    Done m_done;
};

} // namespace kestro

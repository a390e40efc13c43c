#include "platform/base/DetachedTask.h"

#include "platform/base/PostTo.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHash>

#include <algorithm>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace kestro {

using std::chrono::milliseconds;

struct DetachedTask::Job {
    const QString key;
    const QDeadlineTimer deadline;
    std::vector<DetachedTask*> waiting; ///< main thread only
};

/// The works whose threads have not come back. Never destroyed: a thread that is left at exit may still come
/// back to it.
class DetachedTask::Jobs final {
public:
    static Jobs& all();

    /// What is under way for `key`, or null.
    [[nodiscard]] std::shared_ptr<Job> find(const QString& key);
    /// Null when there is no thread to be had.
    [[nodiscard]] std::shared_ptr<Job> begin(const QString& key, milliseconds longest, Work work);

private:
    void run(const std::shared_ptr<Job>& job, const Work& work);
    void listen();
    static void stopListening();
    static void tell(const Job& job, const std::any& answer);

    std::mutex m_mutex;
    QHash<QString, std::shared_ptr<Job>> m_underway;
    bool m_listens = false; ///< there is an event loop to tell on
};

DetachedTask::Jobs& DetachedTask::Jobs::all()
{
    static auto* const jobs = new Jobs;
    return *jobs;
}

std::shared_ptr<DetachedTask::Job> DetachedTask::Jobs::find(const QString& key)
{
    const std::lock_guard lock(m_mutex);
    return m_underway.value(key);
}

std::shared_ptr<DetachedTask::Job> DetachedTask::Jobs::begin(const QString& key, milliseconds longest,
                                                             Work work)
{
    listen();
    auto job = std::make_shared<Job>(Job{key, QDeadlineTimer(longest), {}});
    {
        const std::lock_guard lock(m_mutex);
        m_underway.insert(key, job);
    }
    try {
        std::thread([this, job, work = std::move(work)] { run(job, work); }).detach();
        return job;
    } catch (const std::system_error&) {
        const std::lock_guard lock(m_mutex);
        m_underway.remove(key);
        return nullptr;
    }
}

/// On the work's thread.
void DetachedTask::Jobs::run(const std::shared_ptr<Job>& job, const Work& work)
{
    std::any answer = work();
    const std::lock_guard lock(m_mutex);
    m_underway.remove(job->key);
    if (!m_listens) return;
    postTo(*QCoreApplication::instance(), [job, answer = std::move(answer)] { tell(*job, answer); });
}

void DetachedTask::Jobs::listen()
{
    const std::lock_guard lock(m_mutex);
    if (!std::exchange(m_listens, true)) qAddPostRoutine(stopListening);
}

void DetachedTask::Jobs::stopListening()
{
    const std::lock_guard lock(all().m_mutex);
    all().m_listens = false;
}

void DetachedTask::Jobs::tell(const Job& job, const std::any& answer)
{
    while (!job.waiting.empty())
        job.waiting.front()->finish(answer);
}

std::unique_ptr<DetachedTask> DetachedTask::startAny(const QString& key, milliseconds longest, Work work,
                                                     Done done)
{
    auto job = Jobs::all().find(key);
    if (job && job->deadline.hasExpired()) return nullptr;
    if (!job) job = Jobs::all().begin(key, longest, std::move(work));
    if (!job) return nullptr;
    const auto left = std::chrono::ceil<milliseconds>(job->deadline.remainingTimeAsDuration());
    return std::unique_ptr<DetachedTask>(
        new DetachedTask(std::move(job), std::min(longest, left), std::move(done)));
}

DetachedTask::DetachedTask(std::shared_ptr<Job> job, milliseconds longest, Done done)
    : m_job(std::move(job))
    , m_done(std::move(done))
{
    m_job->waiting.push_back(this);
    m_bound.setSingleShot(true);
    m_bound.callOnTimeout([this] { finish({}); });
    m_bound.start(longest);
}

DetachedTask::~DetachedTask()
{
    leave();
}

void DetachedTask::leave()
{
    if (m_job) std::erase(m_job->waiting, this);
    m_job.reset();
}

void DetachedTask::finish(const std::any& answer)
{
    leave();
    m_bound.stop();
    const Done done = std::exchange(m_done, nullptr); // it may destroy this
    done(answer);
}

} // namespace kestro

#include "keep/KeeperService.h"

#include "keep/MovieCheck.h"
#include "platform/base/Bounds.h"
#include "platform/base/Log.h"
#include "platform/base/WantedMovies.h"

#include <array>
#include <thread>
#include <unistd.h>
#include <utility>

namespace kestro {

namespace {

constexpr std::size_t mostAtOnce = 64UL * 1024;
constexpr qint64 mostBytesPerSecond = 500'000;

FetchLimits limits()
{
    FetchLimits limits;
    limits.bytes = Bounds::savedMovieBytes;
    limits.seconds = Bounds::keptMovieSeconds;
    limits.bytesPerSecond = mostBytesPerSecond;
    return limits;
}

} // namespace

KeeperService::KeeperService(const QString& folder, qint64 bytes, int wishes,
                             const QDBusConnection& systemBus, std::function<void()> end)
    : m_store(folder, bytes)
    , m_keeper(m_store, checkMovie, m_clock, limits())
    , m_wishes(wishes)
    , m_notifier(wishes, QSocketNotifier::Read)
    , m_end(std::move(end))
    , m_permission(systemBus, [this](bool isGiven) { permit(isGiven); })
{
    m_keeper.cancel();
    QObject::connect(&m_notifier, &QSocketNotifier::activated, [this] { hear(); });
    std::thread([this] { work(); }).detach(); // it may wait for a disk or for another keeper for ever
}

void KeeperService::hear()
{
    std::array<char, mostAtOnce> bytes{};
    const ssize_t count = read(m_wishes, bytes.data(), bytes.size());
    if (count <= 0) {
        m_notifier.setEnabled(false);
        return m_end();
    }
    m_heard.append(bytes.data(), count);
    auto wanted = takeWanted(m_heard);
    if (!wanted) return;
    const std::lock_guard lock(m_mutex);
    m_wanted = std::move(*wanted);
    m_isDone = false;
    m_hasWork.notify_one();
}

void KeeperService::permit(bool isPermitted)
{
    const std::lock_guard lock(m_mutex);
    m_isPermitted = isPermitted;
    if (isPermitted)
        m_keeper.allow();
    else
        m_keeper.cancel();
    m_hasWork.notify_one();
}

QList<QUrl> KeeperService::waitForWork()
{
    std::unique_lock lock(m_mutex);
    m_hasWork.wait(lock, [this] { return m_isPermitted && !m_isDone; });
    m_isDone = true;
    return m_wanted;
}

bool KeeperService::claim()
{
    const auto claimed = m_store.claim();
    if (!claimed) logLine(QStringLiteral("Movies are not kept: %1").arg(claimed.error()));
    if (claimed) m_store.tidy();
    return claimed.isOk();
}

void KeeperService::work()
{
    QList<QUrl> wanted = waitForWork();
    if (!claim()) return;
    logLine(m_keeper.summary());
    for (;; wanted = waitForWork()) {
        if (!m_keeper.keepOne(wanted)) continue;
        const std::lock_guard lock(m_mutex);
        m_isDone = false;
    }
}

} // namespace kestro

#pragma once

#include "keep/FetchPermission.h"
#include "keep/MovieKeeper.h"
#include "keep/MovieStore.h"
#include "platform/base/Clock.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <QUrl>

#include <condition_variable>
#include <functional>
#include <mutex>

namespace kestro {

/// The keeper's process as a whole: hears what is wanted, and has it fetched by a thread of its own while
/// that is permitted. It ends as the process does, whatever that thread is about. Main thread. Tested by
/// test_kept_movies.
class KeeperService final {
public:
    /// Hears on the descriptor `wishes`; `end` is called once nobody is at its other end any more.
    KeeperService(const QString& folder, qint64 bytes, int wishes, const QDBusConnection& systemBus,
                  std::function<void()> end);

private:
    void hear();
    void permit(bool isPermitted);
    void work();
    [[nodiscard]] QList<QUrl> waitForWork();
    [[nodiscard]] bool claim();

    MovieStore m_store;
    const SystemClock m_clock;
    MovieKeeper m_keeper;
    int m_wishes;
    QByteArray m_heard;
    QSocketNotifier m_notifier;
    std::function<void()> m_end;

    std::mutex m_mutex; ///< of what follows
    std::condition_variable_any m_hasWork;
    QList<QUrl> m_wanted;
    bool m_isDone = true; ///< with those
    bool m_isPermitted = false;

    FetchPermission m_permission; ///< the last: it tells of itself
};

} // namespace kestro

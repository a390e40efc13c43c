#pragma once

#include "config_ui/EntryFacts.h"

#include <QList>
#include <QUrl>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace kestro {

/// A thread that looks into movies, one after the other, the ones wanted now and no others. Owned by the
/// reader of entries; want() is for its thread. Destroying it ends what is being read.
class ProbeWorker final {
public:
    using Read = std::function<EntryFacts(const QUrl&, const std::stop_token&)>;
    using Deliver = std::function<void(const QUrl&, const EntryFacts&)>;

    /// Both are called on the lane's thread; what was told to stop is not delivered.
    ProbeWorker(Read read, Deliver deliver);
    ~ProbeWorker();
    ProbeWorker(const ProbeWorker&) = delete;
    ProbeWorker& operator=(const ProbeWorker&) = delete;

    /// Reads these, in this order, instead of what was wanted before. What is being read goes on if it is
    /// among them, and is told to stop if not.
    void want(const QList<QUrl>& urls);

private:
    void work(const std::stop_token& end);
    void readNext(std::unique_lock<std::mutex>& lock);

    Read m_read;
    Deliver m_deliver;
    std::mutex m_mutex; ///< of the next four
    std::condition_variable_any m_wanting;
    QList<QUrl> m_wanted;
    std::optional<QUrl> m_reading;
    std::stop_source m_stopReading;
    std::jthread m_thread; ///< last: it uses the others
};

} // namespace kestro

#pragma once

#include "platform/network/Fetch.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <QUrl>

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <semaphore>

namespace kestro {

/// A site in memory, which keeps the order in which it was asked. One page of it may hang until it is
/// cancelled. For tests; any thread.
class MemoryFetch final : public Fetch {
public:
    void put(const QString& url, const QByteArray& page) { m_pages.insert(url, page); }
    void putTooLarge(const QString& url) { m_tooLarge.insert(url); }
    void setHanging(const QString& url) { m_hanging = url; }
    /// Called at each fetch, before its page is answered.
    void setHandler(std::function<void(const QString& url)> handler) { m_handler = std::move(handler); }

    FetchResult fetch(const QUrl& url) override
    {
        const QString asked = url.toString(QUrl::FullyEncoded);
        if (m_handler) m_handler(asked);
        note(asked);
        if (asked == m_hanging) m_isCancelled.wait(false);
        if (m_isCancelled) return FetchFault{FetchFault::Kind::Cancelled, QStringLiteral("cancelled")};
        const auto page = m_pages.constFind(asked);
        if (m_tooLarge.contains(asked))
            return FetchFault{FetchFault::Kind::OverLimit, QStringLiteral("too large")};
        if (page == m_pages.constEnd()) return FetchFault{.message = QStringLiteral("no such page")};
        m_received += page->size();
        return *page;
    }
    void cancel() override { setCancelled(true); }
    void allow() override { setCancelled(false); }
    [[nodiscard]] qint64 received() const override { return m_received; }

    [[nodiscard]] QStringList asked() const
    {
        const std::lock_guard guard(m_mutex);
        return m_asked;
    }
    void forgetAsked()
    {
        const std::lock_guard guard(m_mutex);
        m_asked.clear();
    }
    /// Waits until `url` was asked for; false when nothing is asked for any more before that.
    [[nodiscard]] bool waitForAsked(const QString& url)
    {
        while (!asked().contains(url))
            if (!m_arrivals.try_acquire_for(std::chrono::minutes(3))) return false;
        return true;
    }

private:
    void note(const QString& url)
    {
        {
            const std::lock_guard guard(m_mutex);
            m_asked.append(url);
        }
        m_arrivals.release();
    }
    void setCancelled(bool isCancelled)
    {
        m_isCancelled = isCancelled;
        m_isCancelled.notify_all();
    }

    QHash<QString, QByteArray> m_pages;
    QSet<QString> m_tooLarge;
    QString m_hanging;
    qint64 m_received = 0;
    std::function<void(const QString&)> m_handler;
    std::atomic<bool> m_isCancelled = false;
    std::counting_semaphore<> m_arrivals{0};
    mutable std::mutex m_mutex; ///< guards what follows
    QStringList m_asked;
};

} // namespace kestro

#pragma once

#include "keep/MovieStore.h"
#include "platform/base/Result.h"
#include "platform/network/Download.h"

#include <QHash>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

namespace kestro {

class Clock;
class PartFile;

/// Fetches movies into a store, one at a time: each whole, looked into, or not at all. What cannot be kept
/// rests a while; what is no movie, for a week. Owned by the keeper's process; on one thread, cancel() and
/// allow() on any.
class MovieKeeper final {
public:
    /// Whether the file at a path is a movie that is whole; the error is the reason alone.
    using Check = std::function<Result<void>(const QString& path)>;

    /// `store` is claimed, and outlives this, as the clock does.
    MovieKeeper(MovieStore& store, Check check, const Clock& clock, const FetchLimits& limits);

    /// Sees to the first of them that is not kept yet, or for too long. False where there is nothing left to
    /// do for now.
    bool keepOne(const QList<QUrl>& wanted);
    /// Gives up the fetch that runs, of which nothing is left, and each later one until allow().
    void cancel() { m_download.cancel(); }
    void allow() { m_download.allow(); }

    /// What is kept, in words.
    [[nodiscard]] QString summary() const;

private:
    [[nodiscard]] bool isResting(const QUrl& movie) const;
    void fetch(const QUrl& movie, const RemoteVersion& known, const QList<QUrl>& wanted);
    void take(const QUrl& movie, PartFile& part, const RemoteVersion& version);
    void giveUp(const QUrl& movie, const PartFile& part, const FetchFault& fault);
    void stop(const QString& reason);
    void pass(const QUrl& movie, const QString& reason);

    MovieStore& m_store;
    Check m_check;
    const Clock& m_clock;
    Download m_download;
    QHash<QUrl, double> m_failedAt;    ///< clock time
    std::optional<double> m_fullSince; ///< clock time
    bool m_hasStopped = false;         ///< the disk is full
};

} // namespace kestro

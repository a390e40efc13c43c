#pragma once

#include <QList>
#include <QSet>
#include <QString>
#include <QUrl>

#include <optional>

namespace kestro {

/// What the saver knows of the trailer scanner: the newest trailers on record, and a crawl in the background.
/// One per process. Main thread.
class LatestTrailers {
public:
    virtual ~LatestTrailers() = default;

    /// The newest `count` trailers of frame width `width`, the oldest of them first, leaving out the URLs
    /// whose absoluteString() is in `excluded`; all there are where `count` is not above 0.
    [[nodiscard]] virtual QList<QUrl> lastTrailers(int count, int width, const QSet<QString>& excluded) = 0;
    /// The year of the trailer of that URL, as it is on record; nothing where it is not, or nothing has asked
    /// for trailers yet.
    [[nodiscard]] virtual std::optional<int> yearOf(const QUrl&) { return {}; }
    /// Refreshes the record in the background, for later; answers at once.
    virtual void scanLatest() = 0;
    /// Ends a crawl in the background; nothing when none runs.
    virtual void stopThreading() = 0;
};

} // namespace kestro

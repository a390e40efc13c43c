#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace kestro {

/// Keeps a line that comes again and again from filling the log: it is written when it comes first, and from
/// then on at most once a minute, with how often it came. What was held back is told by whatever line comes
/// once its minute is over; nothing waits for that, so a log that falls silent keeps it to itself. Owned by
/// the log, which lets one thread in at a time; seconds of any clock that never goes back.
class RepeatedLines final {
public:
    static constexpr double span = 60; ///< seconds that a line is not written again

    /// What to write because of `line`, which came at `now`, in this order: what was held back of others,
    /// then the line itself unless it is held back. Beyond Bounds::rememberedLogLines the one that was
    /// written longest ago is forgotten, with what was held back of it told.
    [[nodiscard]] QStringList take(const QString& line, double now);

private:
    /// A line of the last minute. Ordered by when they were written, the oldest first.
    struct Written {
        QString line;
        double at;
        int heldBack;
    };

    void tellOverdue(QStringList& told, double now);
    void remember(QStringList& told, const QString& line, double now);

    std::vector<Written> m_written;
};

} // namespace kestro

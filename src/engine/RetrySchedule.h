#pragma once

#include <QtGlobal>

#include <optional>

namespace kestro {

/// When a search that found nothing to play is made again, for ever: in the first minute every second, later
/// every half minute. A long list is given longer rests from the beginning, since each of its files is looked
/// for. Seconds of the clock. A value of the engine's; main thread.
class RetrySchedule final {
public:
    /// A search among so many entries found nothing.
    void failed(double now, qsizetype entries);
    /// Something plays, or is not to be looked for any more.
    void end() { *this = {}; }
    /// Whether it is time to search again.
    [[nodiscard]] bool isDue(double now) const { return m_next && now >= *m_next; }

private:
    std::optional<double> m_first; ///< end of the first search that found nothing
    std::optional<double> m_next;
};

} // namespace kestro

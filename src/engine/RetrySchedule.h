#pragma once

#include <optional>

namespace kestro {

/// When a search that found nothing to play is made again: after a second, and in the first minute every
/// second, later every half minute, for ever. Seconds of the clock. A value of the engine's; main thread.
class RetrySchedule final {
public:
    /// A search that ended at `now` found nothing.
    void failed(double now);
    /// Something plays, or is not to be looked for any more.
    void end() { *this = {}; }
    /// Whether it is time to search again.
    [[nodiscard]] bool isDue(double now) const { return m_next && now >= *m_next; }

private:
    std::optional<double> m_first; ///< end of the first search that found nothing
    std::optional<double> m_next;
};

} // namespace kestro

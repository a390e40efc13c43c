#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace kestro {

/// What tells that the person has been away for some time and is back: a service of the desktop, a protocol
/// of the compositor or a counter of the X server. It waits for events and never wakes the process besides.
/// Owned by the program that asks. Main thread.
class IdleSource {
public:
    /// All are given. Called from the event loop; each may destroy the source.
    struct Handlers {
        std::function<void()> onIdle;   ///< no input for as long as was asked for
        std::function<void()> onActive; ///< the first input since; onIdle comes before it, each time
        std::function<void()> onLost;   ///< once: the service is gone, nothing is told any more
    };

    virtual ~IdleSource() = default;

    /// What it is called in the log and in the status: "XSync", "org_kde_kwin_idle".
    [[nodiscard]] virtual QString name() const = 0;
    /// Has it told when there was no input for `span`, at least a millisecond; from now on, in place of what
    /// was asked for before: the person counts as present until it is told otherwise. Some begin to count
    /// now, others tell at once of a person who has been away for as long already.
    virtual void watch(std::chrono::milliseconds span, Handlers handlers) = 0;
};

} // namespace kestro

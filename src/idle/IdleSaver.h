#pragma once

#include <functional>

namespace kestro {

/// The saver as the idle service sees it: something that it starts and ends. Owned by the service. Main
/// thread.
class IdleSaver {
public:
    /// `hasBrokenOff` tells an end that nobody asked for, neither a person nor the service.
    using EndHandler = std::function<void(bool hasBrokenOff)>;

    virtual ~IdleSaver() = default;

    /// Starts it, once the one before has ended. `onEnd` is called once, from the event loop.
    virtual void start(EndHandler onEnd) = 0;
    /// Asks it to end; by force where it does not. Its end is told as always.
    virtual void stop() = 0;
};

} // namespace kestro

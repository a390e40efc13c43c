#pragma once

namespace kestro {

/// Has this process, and what it starts, do without the message buses of the session and of the system that
/// take whoever comes and say nothing for a second: whoever waits for such a one, as Qt does wherever it has
/// a use for a bus, waits for a minute or more. A line in the log tells of it. Where the session has no bus,
/// none is started for us: nobody else would be on it, and it would outlive us. What cannot be looked at (a
/// bus on another machine, one whose address says that it is started where it is wanted) is left as it is.
/// It takes as long as the buses, that second at most. Before anything else uses a bus; main thread, no other
/// reads the environment. Tested by test_bus.
void leaveDeafBuses();

} // namespace kestro

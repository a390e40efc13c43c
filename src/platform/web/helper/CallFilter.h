#pragma once

namespace kestro {

/// Has the system refuse to this process, and to all that it will start, the calls that a browser needs none
/// of and that look into other processes, load code into the system, change the machine or reach old corners
/// of it. The browser's page processes have a filter of their own besides, which allows them far less. False
/// where it cannot be had.
[[nodiscard]] bool filterCalls();

} // namespace kestro

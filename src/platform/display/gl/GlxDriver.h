#pragma once

namespace kestro {

/// Whether GLX has a driver for the application's display. Where it has none, as between the upgrade of a
/// driver and the next start of the machine, Qt would end the process at the first context. True, too, where
/// Qt does without GLX: off X11, with EGL, on a server that has none. Main thread, once there is an
/// application. Tested by test_broken_driver.
[[nodiscard]] bool hasGlxDriver();

} // namespace kestro

#pragma once

#include <cstdint>

namespace kestro {

/// Names one thing for the life of the process. Unlike an address it is never used again. 0 names nothing.
/// Tested by NotificationsTest.
using Identity = std::uint64_t;

/// A fresh one. Main thread.
[[nodiscard]] Identity makeIdentity();

} // namespace kestro

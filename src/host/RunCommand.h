#pragma once

namespace kestro {

struct Command;

/// `kestro` without a command: the saver on every screen until a person or a signal ends it.
[[nodiscard]] Command runCommand();

} // namespace kestro

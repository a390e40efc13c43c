#pragma once

namespace kestro {

struct Command;

/// `kestro render`: runs the saver on screens in memory, in real time, and writes pictures and a trace of it.
[[nodiscard]] Command renderCommand();

} // namespace kestro

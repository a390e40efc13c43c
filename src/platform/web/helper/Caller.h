#pragma once

#include <sys/types.h>

namespace kestro {

/// Whether the descriptor is one end of a line that the process which started this one has made for it: a
/// connected socket within this machine that keeps messages apart. Any thread.
[[nodiscard]] bool isLineToParent(int descriptor);

/// Whether it is one that `maker` made and has left: nobody is at its other end any more. Any thread.
[[nodiscard]] bool isLineLeftBy(int descriptor, pid_t maker);

} // namespace kestro

#pragma once

namespace kestro {

/// Whether the descriptor is one end of a line that the process which started this one has made for it: a
/// connected socket within this machine that keeps messages apart. Any thread.
[[nodiscard]] bool isLineToParent(int descriptor);

} // namespace kestro

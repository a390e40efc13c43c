#pragma once

namespace kestro {

struct Command;

/// `kestro latest N W`: prints the N newest trailers of frame width W, one absolute URL a line, the newest
/// last. Needs no display, starts no crawl.
[[nodiscard]] Command latestCommand();

} // namespace kestro

#pragma once

namespace kestro {

struct Command;

/// `kestro scan [--start URL] [--host NAME] [--forget] [--verbose]`: one crawl of the trailer site in the
/// foreground; the list is saved at its end. Needs no display.
[[nodiscard]] Command scanCommand();

} // namespace kestro

#pragma once

namespace kestro {

struct Command;

/// `kestro inspect-page FILE --base URL`: prints what the crawler would take out of a page, as JSON. Reads
/// the feeds that the page names; needs no display.
[[nodiscard]] Command inspectPageCommand();

} // namespace kestro

#pragma once

namespace kestro {

struct Command;

/// `kestro publish MOVIES SITE [--base-url URL] [--copy]`: writes a site of trailers from a folder of movies.
/// Needs no display.
[[nodiscard]] Command publishCommand();

} // namespace kestro

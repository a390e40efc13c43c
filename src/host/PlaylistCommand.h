#pragma once

namespace kestro {

struct Command;

/// `kestro playlist [--expanded]`: prints the playlist, one absolute URL a line. Needs no display, starts no
/// crawl.
[[nodiscard]] Command playlistCommand();

} // namespace kestro

#pragma once

#include "platform/movie/MovieFacts.h"

#include <optional>

struct mpv_handle;

namespace kestro {

/// What is known of the video among the tracks before it is decoded, with the largest size of those
/// that there are; nothing when there is none. It asks mpv, so it is for moments when mpv waits.
/// Tested by RemoteMovieTest.
[[nodiscard]] std::optional<MovieFacts> factsOfVideo(mpv_handle* mpv);

} // namespace kestro

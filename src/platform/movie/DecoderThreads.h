#pragma once

namespace kestro {

struct MovieFacts;

/// How many threads are to decode a movie on a machine of `cores`, 1 or more: one for each 1920x1080 at 30
/// frames a second or begun part of it, twice as many for a codec newer than H.264, and no more than there
/// are cores, or than leave its frames within Bounds::decoderBytes. One thread does that on a slow machine
/// of today, and costs a tenth less than two that share the work. Any thread.
[[nodiscard]] int decoderThreads(const MovieFacts& facts, int cores);

/// The same for a movie that nothing is known of yet.
[[nodiscard]] int decoderThreadsOfUnknown(int cores);

} // namespace kestro

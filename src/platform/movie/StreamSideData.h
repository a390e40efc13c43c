#pragma once

#include "platform/movie/AvFormat.h"

#include <cstdint>
#include <span>

namespace kestro {

// What lies beside a stream and holds for all of its packets, such as a video's turn. Older libraries keep it
// with the stream, newer ones with the parameters of its codec; only this file knows. Any thread. Tested by
// MovieProbeTest, StreamableMovieTest.

/// The side data of that kind; it is the stream's. Empty where there is none.
[[nodiscard]] std::span<const std::uint8_t> sideDataOf(const AVStream& stream, AVPacketSideDataType kind);

/// Gives `to` the codec's parameters of `from`, and its side data. Answers FFmpeg's error, which is below 0.
[[nodiscard]] int copyParameters(AVStream& to, const AVStream& from);

} // namespace kestro

#pragma once

#include <cstdint>

namespace kestro {

/// A time of a movie: whole units, `timeScale` of them a second. A stretch of time is rounded up to whole
/// units.
struct MovieTime {
    std::int64_t timeValue = 0;
    std::int32_t timeScale = 600;
    bool operator==(const MovieTime&) const = default;
};

/// Units a second of every movie here.
inline constexpr std::int32_t movieTimeScale = 600;

/// `seconds` as movie time, rounded up to a whole unit; zero for a negative or unknown (not finite) span.
[[nodiscard]] MovieTime movieTimeFromSeconds(double seconds);

/// The span in seconds.
[[nodiscard]] double secondsFromMovieTime(MovieTime time);

} // namespace kestro

#pragma once

namespace kestro {

/// How much of a movie was read, and how long it is, in bytes; zero where that is unknown.
struct StreamBytes {
    double read = 0;
    double length = 0;
};

/// Whether a movie of `duration` seconds that came to its end at `position` broke off there: much of its time
/// is missing, and as much of its bytes. (Its time alone does not tell: sound may last longer than the
/// frames, and its bytes alone do not either, as indexes may lie behind them.) False where not known. Any
/// thread.
[[nodiscard]] bool brokeOff(double position, double duration, StreamBytes bytes);

} // namespace kestro

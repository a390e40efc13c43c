#pragma once

namespace kestro {

/// What a play position does at the ends of its movie.
enum class EndMode { Stop, Loop, Turn };

/// A play position that moves by itself: where it is (seconds into the movie) and which way it goes. A value;
/// any thread.
struct Playhead {
    double position = 0;
    bool backwards = false;
    bool running = false;
    bool atEnd = false; ///< came to stand at an end of the movie

    /// Where it is `elapsed` seconds later, in a movie of `duration` seconds.
    [[nodiscard]] Playhead after(double elapsed, double duration, EndMode mode) const;

private:
    [[nodiscard]] Playhead stopping(double elapsed, double duration) const;
    [[nodiscard]] Playhead looping(double elapsed, double duration) const;
    [[nodiscard]] Playhead turning(double elapsed, double duration) const;
};

} // namespace kestro

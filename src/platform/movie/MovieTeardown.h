#pragma once

#include <functional>

namespace kestro {

/// As many are freed at once; more wait for one of them.
inline constexpr int mostTeardownThreads = 8;

/// Frees what a movie played with on a thread of its own: freeing a player may wait for its decoders, and
/// nothing on the main thread should. Any thread.
void tearDownLater(std::function<void()> free);

/// Waits until all that was torn down is free, 200 ms at most; what takes longer is left to the system. A
/// program that shows movies calls it before it ends; it is also called at exit by itself. Any thread.
void finishMovieTeardown();

} // namespace kestro

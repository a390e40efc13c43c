#pragma once

#include <cstdio>
#include <cstdlib>

namespace kestro {

/// Ends a fuzzer's run, as a crash does, where what must always hold does not.
inline void expect(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

} // namespace kestro

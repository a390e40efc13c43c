#pragma once

#include <cstddef>

namespace kestro {

/// Sees to it that reading an input never takes much more memory at a time than the input is long: a run ends
/// as by a crash where it does. One at a time; what is taken on any thread counts.
class MemoryWatch final {
public:
    /// `inputSize` in bytes.
    explicit MemoryWatch(std::size_t inputSize);
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;
};

} // namespace kestro

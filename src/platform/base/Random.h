#pragma once

#include <cstdint>

namespace kestro {

/// The source of random numbers. Passed in wherever they matter, so that tests can seed or script it. Main
/// thread.
class Random {
public:
    virtual ~Random() = default;

    /// A whole number, evenly spread over 0 … 2^31 - 1, like the C library's `random()`.
    [[nodiscard]] virtual std::int32_t next() = 0;
};

/// The C library's `random()`, seeded once from the system's entropy when made.
class SystemRandom final : public Random {
public:
    SystemRandom();
    [[nodiscard]] std::int32_t next() override;
};

/// The same sequence for the same seed, on every machine.
class SeededRandom final : public Random {
public:
    explicit SeededRandom(std::uint32_t seed)
        : m_state(seed)
    {
    }
    [[nodiscard]] std::int32_t next() override;

private:
    std::uint64_t m_state;
};

} // namespace kestro

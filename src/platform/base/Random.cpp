#include "platform/base/Random.h"

#include <cstdlib>
#include <random>

namespace kestro {

SystemRandom::SystemRandom()
{
    srandom(std::random_device{}());
}

std::int32_t SystemRandom::next()
{
    return static_cast<std::int32_t>(random());
}

// SplitMix64 (Steele, Lea, Flood: "Fast splittable pseudorandom number generators").
std::int32_t SeededRandom::next()
{
    m_state += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebU;
    mixed ^= mixed >> 31;
    return static_cast<std::int32_t>(mixed >> 33);
}

} // namespace kestro

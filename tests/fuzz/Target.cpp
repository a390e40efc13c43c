#include "Target.h"

#include "MemoryWatch.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const kestro::MemoryWatch watch(size);
    kestro::tryInput({reinterpret_cast<const char*>(data), size});
    return 0;
}

/// Changes an input as the library does. One in some hundred is then filled up with a part of it, over and
/// over, as far as an input may go: what costs more than its size shows at that size.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed)
{
    constexpr std::size_t usual = 4096;
    constexpr unsigned oneIn = 300;
    const std::size_t changed = LLVMFuzzerMutate(data, std::min(size, usual), std::min(maxSize, usual));
    std::minstd_rand random(seed);
    random.discard(1);
    if (changed == 0 || random() % oneIn != 0) return changed;
    const std::size_t begin = random() % changed;
    const std::size_t length = 1 + random() % std::min<std::size_t>(changed - begin, 64);
    // Half of them keep what stood after that part.
    const std::size_t tail = random() % 2 == 0 ? changed - begin - length : 0;
    std::memmove(data + maxSize - tail, data + begin + length, tail);
    for (std::size_t at = begin + length; at < maxSize - tail; ++at)
        data[at] = data[at - length];
    return maxSize;
}

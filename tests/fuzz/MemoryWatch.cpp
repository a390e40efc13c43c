#include "MemoryWatch.h"

#include "Expect.h"

#include <atomic>
#include <sanitizer/allocator_interface.h>

namespace kestro {

namespace {

/// Room for what a reader has once, and for the text of XML, which Qt reads in pieces.
constexpr long long ofAnyInput = 8LL * 1024 * 1024;
constexpr long long perByte = 128;

std::atomic<long long> taken{0};
std::atomic<long long> most{0}; ///< 0 between inputs, where nothing is too much

void noteTaken(const volatile void* memory, std::size_t)
{
    const long long now = taken +=
        static_cast<long long>(__sanitizer_get_allocated_size(const_cast<const void*>(memory)));
    const long long allowed = most;
    expect(allowed == 0 || now <= allowed, "what is read takes memory in proportion to its size");
}

void noteFreed(const volatile void* memory)
{
    taken -= static_cast<long long>(__sanitizer_get_allocated_size(const_cast<const void*>(memory)));
}

} // namespace

MemoryWatch::MemoryWatch(std::size_t inputSize)
{
    static const bool isInstalled = __sanitizer_install_malloc_and_free_hooks(noteTaken, noteFreed) != 0;
    expect(isInstalled, "memory can be watched");
    taken = 0;
    most = ofAnyInput + perByte * static_cast<long long>(inputSize);
}

MemoryWatch::~MemoryWatch()
{
    most = 0;
}

} // namespace kestro

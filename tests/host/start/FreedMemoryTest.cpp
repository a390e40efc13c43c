#include "host/start/ProcessStart.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <malloc.h>

namespace kestro {

namespace {

/// How much of what is held is not part of any heap, in bytes, while a block of that size is there.
std::size_t outsideOfHeaps(std::size_t size)
{
    void* volatile const block = std::malloc(size); // volatile: else the compiler does without it
    const std::size_t held = mallinfo2().hblkhd;
    std::free(block);
    return held;
}

} // namespace

TEST(FreedMemory, ofLargeBlocks_isGivenBackAtOnce_howeverManyLargerOnesThereWere)
{
    constexpr std::size_t picture = 1920 * 1080 * 4;
    prepareProcess();
    const std::size_t before = mallinfo2().hblkhd;
    EXPECT_GE(outsideOfHeaps(picture), before + picture);
    EXPECT_GE(outsideOfHeaps(picture / 2), before + picture / 2);
    EXPECT_EQ(mallinfo2().hblkhd, before);
}

} // namespace kestro

#include "platform/web/SharedFrames.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace kestro {

TEST(SharedFrames, make_refusesSizesOutOfBounds)
{
    for (const QSize size : {QSize(0, 5), QSize(5, 0), QSize(-1, 5), QSize(SharedFrames::longestSide + 1, 1)})
        EXPECT_FALSE(SharedFrames::make(size));
}

TEST(SharedFrames, memory_canNotBeMadeSmallerByTheOtherEnd)
{
    const auto frames = SharedFrames::make({8, 8});
    ASSERT_TRUE(frames);
    const Descriptor other = frames->share();
    EXPECT_NE(ftruncate(other.number(), 0), 0);
}

TEST(SharedFrames, slots_areApart)
{
    const auto frames = SharedFrames::make({8, 8});
    ASSERT_TRUE(frames);
    const auto writer = SharedFrames::adopt(frames->share(), {8, 8});
    ASSERT_TRUE(writer);
    writer->writable(0).fill(Qt::white);
    EXPECT_EQ(frames->pixels(0)[8 * 8 * 4 - 1], 255);
    EXPECT_EQ(frames->pixels(1)[0], 0);
}

TEST(SharedFrames, adopt_refusesMemoryOfAnotherSize)
{
    const auto frames = SharedFrames::make({8, 8});
    ASSERT_TRUE(frames);
    EXPECT_FALSE(SharedFrames::adopt(frames->share(), {8, 9}));
}

TEST(SharedFrames, adopt_refusesMemoryThatCouldShrink)
{
    Descriptor memory(memfd_create("loose", MFD_ALLOW_SEALING));
    ASSERT_EQ(ftruncate(memory.number(), 8 * 8 * 4 * SharedFrames::slotCount), 0);
    EXPECT_FALSE(SharedFrames::adopt(std::move(memory), {8, 8}));
}

// Systems that forbid memory to hold programs add a seal of their own.
TEST(SharedFrames, adopt_takesMemoryWithMoreSealsThanItNeeds)
{
    constexpr int sealOfTheSystem = 0x20;
    Descriptor memory(memfd_create("sealed", MFD_ALLOW_SEALING));
    ASSERT_EQ(ftruncate(memory.number(), 8 * 8 * 4 * SharedFrames::slotCount), 0);
    ASSERT_EQ(fchmod(memory.number(), S_IRUSR | S_IWUSR), 0);
    ASSERT_EQ(fcntl(memory.number(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW), 0);
    fcntl(memory.number(), F_ADD_SEALS, sealOfTheSystem); // systems before 6.3 know none
    ASSERT_EQ(fcntl(memory.number(), F_ADD_SEALS, F_SEAL_SEAL), 0);
    EXPECT_TRUE(SharedFrames::adopt(std::move(memory), {8, 8}));
}

TEST(SharedFrames, adopt_refusesNothing)
{
    EXPECT_FALSE(SharedFrames::adopt(Descriptor(), {8, 8}));
}

} // namespace kestro

#include "platform/web/SharedBytes.h"

#include "platform/base/Bounds.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

namespace kestro {

TEST(SharedBytes, bytesOf_answersWhatSharedBytesGot)
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("words"), QByteArray(100000, 'x')})
        EXPECT_EQ(bytesOf(sharedBytes(bytes), bytes.size()), bytes);
}

TEST(SharedBytes, memory_cannotBeWritten)
{
    const Descriptor memory = sharedBytes("words");
    EXPECT_LT(pwrite(memory.number(), "x", 1, 0), 0);
    EXPECT_NE(ftruncate(memory.number(), 0), 0);
}

TEST(SharedBytes, bytesOf_refusesAnotherLength)
{
    const Descriptor memory = sharedBytes("words");
    for (const qint64 length : {qint64(-1), qint64(0), qint64(4), qint64(6), Bounds::webRequestBytes + 1})
        EXPECT_FALSE(bytesOf(memory, length)) << length;
}

TEST(SharedBytes, bytesOf_refusesMemoryThatCouldChange)
{
    const Descriptor memory(memfd_create("loose", MFD_ALLOW_SEALING));
    ASSERT_EQ(write(memory.number(), "words", 5), 5);
    EXPECT_FALSE(bytesOf(memory, 5));
    EXPECT_FALSE(bytesOf(Descriptor(), 0));
}

} // namespace kestro

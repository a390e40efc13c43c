#include "platform/web/helper/Caller.h"

#include "platform/base/Descriptor.h"

#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace kestro {

namespace {

struct Pair {
    Descriptor near;
    Descriptor far;
};

Pair pairOf(int type)
{
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, type | SOCK_CLOEXEC, 0, ends.data()), 0);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

/// What isLineToParent() answers in a process that this one starts.
bool isTakenByChild(int descriptor)
{
    const pid_t child = fork();
    if (child == 0) _exit(isLineToParent(descriptor) ? 1 : 0);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST(Caller, isLineToParent_takesALineThatTheParentMade)
{
    const Pair line = pairOf(SOCK_SEQPACKET);
    EXPECT_TRUE(isTakenByChild(line.far.number()));
}

TEST(Caller, isLineToParent_refusesALineThatSomebodyElseMade)
{
    const Pair line = pairOf(SOCK_SEQPACKET);
    EXPECT_FALSE(isLineToParent(line.far.number())); // made by this very process
}

TEST(Caller, isLineLeftBy_isTrue_onceTheOneWhoMadeItHasGone)
{
    Pair line = pairOf(SOCK_SEQPACKET);
    EXPECT_FALSE(isLineLeftBy(line.far.number(), getpid()));
    line.near.reset();
    EXPECT_TRUE(isLineLeftBy(line.far.number(), getpid()));
    EXPECT_FALSE(isLineLeftBy(line.far.number(), getppid()));
    EXPECT_FALSE(isLineLeftBy(-1, -1));
}

TEST(Caller, isLineToParent_refusesOtherSocketsAndNone)
{
    const Pair stream = pairOf(SOCK_STREAM);
    EXPECT_FALSE(isTakenByChild(stream.far.number()));
    const Descriptor lonely(socket(AF_UNIX, SOCK_SEQPACKET, 0));
    EXPECT_FALSE(isTakenByChild(lonely.number()));
    const Descriptor network(socket(AF_INET, SOCK_STREAM, 0));
    EXPECT_FALSE(isTakenByChild(network.number()));
    const Descriptor file(open("/dev/null", O_RDWR));
    EXPECT_FALSE(isTakenByChild(file.number()));
    EXPECT_FALSE(isTakenByChild(-1));
}

} // namespace

} // namespace kestro

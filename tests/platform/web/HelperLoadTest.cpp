#include "platform/web/HelperLoad.h"

#include "support/WaitUntil.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <mutex>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kestro {

namespace {

[[noreturn]] void waitForEver()
{
    for (;;)
        pause();
}

TEST(HelperLoad, loadOf_countsWhatAProcessHasStarted_andWhatThatHasStarted)
{
    const pid_t child = fork();
    if (child == 0) {
        setpgid(0, 0);
        if (fork() == 0) fork();
        waitForEver();
    }
    EXPECT_TRUE(waitUntil([&] { return loadOf(child).processes == 3; }));
    kill(-child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(HelperLoad, loadOf_sumsTheMemory_sharedAsWellAsOwn)
{
    constexpr size_t bytes = 64UL * 1024 * 1024;
    const qint64 before = loadOf(getpid()).bytes;
    for (const int kind : {MAP_PRIVATE, MAP_SHARED}) {
        void* const memory =
            mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_ANONYMOUS | MAP_POPULATE | kind, -1, 0);
        ASSERT_NE(memory, MAP_FAILED);
        EXPECT_GE(loadOf(getpid()).bytes, before + qint64(bytes) / 2) << kind;
        munmap(memory, bytes);
    }
}

TEST(HelperLoad, loadOf_countsMemoryThatIsHeldOpen_once)
{
    constexpr qint64 bytes = 64LL * 1024 * 1024;
    const int memory = memfd_create("held", MFD_CLOEXEC);
    ASSERT_EQ(posix_fallocate(memory, 0, bytes), 0);
    const int again = dup(memory);
    const qint64 held = loadOf(getpid()).bytes;
    close(again);
    close(memory);
    const qint64 none = loadOf(getpid()).bytes;
    EXPECT_GE(held, none + bytes / 2);
    EXPECT_LT(held, none + bytes * 3 / 2);
}

TEST(HelperLoad, loadOf_countsThreads)
{
    std::thread([] {}).join(); // a sanitizer starts a thread of its own with the first
    std::mutex guard;
    const int before = loadOf(getpid()).threads;
    std::unique_lock lock(guard);
    std::thread other([&] { const std::lock_guard wait(guard); });
    EXPECT_EQ(loadOf(getpid()).threads, before + 1);
    lock.unlock();
    other.join();
}

TEST(HelperLoad, loadOf_isNothing_whereThereIsNoSuchProcess)
{
    const HelperLoad load = loadOf(999999999);
    EXPECT_EQ(load.processes, 0);
    EXPECT_EQ(load.threads, 0);
    EXPECT_EQ(load.bytes, 0);
}

} // namespace

} // namespace kestro

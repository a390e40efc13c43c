#include "platform/web/helper/CallFilter.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestro {

namespace {

/// What a process under the filter answers.
bool holdsUnderTheFilter(bool (*claim)())
{
    const pid_t child = fork();
    if (child == 0) _exit(filterCalls() && claim() ? 1 : 0);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

bool isRefused(long answer)
{
    return answer == -1 && errno == EPERM;
}

TEST(CallFilter, filterCalls_refusesToLookIntoOtherProcesses)
{
    EXPECT_TRUE(holdsUnderTheFilter([] { return isRefused(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr)); }));
    EXPECT_TRUE(holdsUnderTheFilter(
        [] { return isRefused(syscall(SYS_process_vm_readv, getppid(), nullptr, 0UL, nullptr, 0UL, 0UL)); }));
}

TEST(CallFilter, filterCalls_refusesWhatChangesTheMachine)
{
    EXPECT_TRUE(
        holdsUnderTheFilter([] { return isRefused(mount("none", "/nowhere", "tmpfs", 0, nullptr)); }));
    EXPECT_TRUE(holdsUnderTheFilter([] { return isRefused(syscall(SYS_bpf, 0, nullptr, 0)); }));
    EXPECT_TRUE(holdsUnderTheFilter([] { return isRefused(syscall(SYS_keyctl, 0, 0, 0, 0, 0)); }));
    EXPECT_TRUE(holdsUnderTheFilter([] { return isRefused(syscall(SYS_io_uring_setup, 1, nullptr)); }));
    EXPECT_TRUE(holdsUnderTheFilter([] { return isRefused(syscall(SYS_userfaultfd, 0)); }));
}

TEST(CallFilter, filterCalls_holdsForWhatIsStarted)
{
    EXPECT_TRUE(holdsUnderTheFilter([] {
        const pid_t child = fork();
        if (child == 0) _exit(isRefused(syscall(SYS_bpf, 0, nullptr, 0)) ? 1 : 0);
        int status = 0;
        return waitpid(child, &status, 0) == child && WEXITSTATUS(status) == 1;
    }));
}

TEST(CallFilter, filterCalls_leavesWhatABrowserNeeds)
{
    EXPECT_TRUE(holdsUnderTheFilter([] {
        const int memory = memfd_create("a", MFD_CLOEXEC);
        return memory >= 0 && ftruncate(memory, 4096) == 0 &&
               mmap(nullptr, 4096, PROT_READ, MAP_SHARED, memory, 0) != MAP_FAILED;
    }));
}

} // namespace

} // namespace kestro

#include "host/start/Confinement.h"

#include "platform/base/Bounds.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace kestro {

namespace {

constexpr std::uint32_t bitOf(int capability)
{
    return std::uint32_t{1} << capability;
}

/// With them root reads and writes the files of others; all are in the first of two words.
constexpr std::uint32_t fileRights = bitOf(CAP_CHOWN) | bitOf(CAP_DAC_OVERRIDE) | bitOf(CAP_DAC_READ_SEARCH) |
                                     bitOf(CAP_FOWNER) | bitOf(CAP_FSETID);

/// Root's web content, which has no sandbox of its own and is for tests, needs one right more to be given a
/// network with nothing in it.
std::uint32_t rightsToKeep()
{
    const char* const isWithoutSandbox = std::getenv("QTWEBENGINE_DISABLE_SANDBOX");
    return isWithoutSandbox && *isWithoutSandbox ? fileRights | bitOf(CAP_SYS_ADMIN) : fileRights;
}

bool isIn(std::uint32_t rights, int capability)
{
    return capability < 32 && (rights & bitOf(capability)) != 0;
}

/// An ordinary user has none to give up, and may not narrow what its programs could get: that is what
/// no-new-privileges is for.
void dropCapabilities()
{
    const std::uint32_t wanted = rightsToKeep();
    prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0);
    for (int capability = 0; prctl(PR_CAPBSET_READ, capability) >= 0; ++capability)
        if (!isIn(wanted, capability)) prctl(PR_CAPBSET_DROP, capability);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct rights[2] = {};
    if (syscall(SYS_capget, &header, rights) != 0) return;
    const std::uint32_t kept = rights[0].permitted & wanted;
    rights[0] = {kept, kept, 0};
    rights[1] = {};
    syscall(SYS_capset, &header, rights);
}

} // namespace

void confineProcess()
{
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    dropCapabilities();
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

void beFirstToGo()
{
    std::FILE* const file = std::fopen("/proc/self/oom_score_adj", "we");
    if (!file) return;
    std::fprintf(file, "%d", Bounds::oomScore);
    std::fclose(file);
}

} // namespace kestro

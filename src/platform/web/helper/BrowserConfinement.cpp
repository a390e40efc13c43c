#include "platform/web/helper/BrowserConfinement.h"

#include "platform/base/Bounds.h"
#include "platform/base/Descriptor.h"
#include "platform/web/helper/CallFilter.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/capability.h>
#include <sched.h>
#include <string>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
// The browser frees some of its own objects by the name of a base class. Options of whoever started the saver
// do not get as far as here.
extern "C" [[gnu::visibility("default")]] const char* __asan_default_options()
{
    return "new_delete_type_mismatch=0";
}
#endif

namespace kestro {

namespace {

constexpr rlim_t mostFiles = 1024;
constexpr rlim_t largestFile = 256L * 1024 * 1024;

bool writeTo(const char* file, const std::string& text)
{
    const Descriptor opened(open(file, O_WRONLY | O_CLOEXEC));
    return opened.isOpen() &&
           write(opened.number(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

bool limit(__rlimit_resource what, rlim_t most)
{
    rlimit now{};
    if (getrlimit(what, &now) != 0) return false;
    now.rlim_max = std::min(now.rlim_max, most);
    now.rlim_cur = std::min(now.rlim_cur, now.rlim_max);
    return setrlimit(what, &now) == 0;
}

// What the address sanitizer keeps of all memory counts as data: there is no telling that from the browser's.
#ifdef __SANITIZE_ADDRESS__
constexpr rlim_t mostData = RLIM_INFINITY;
#else
constexpr rlim_t mostData = Bounds::webProcessBytes;
#endif

/// Address space stays free: the browser reserves far more of it than it ever uses.
bool limitAll()
{
    return limit(RLIMIT_DATA, mostData) && limit(RLIMIT_CORE, 0) && limit(RLIMIT_NOFILE, mostFiles) &&
           limit(RLIMIT_FSIZE, largestFile);
}

/// In the new user namespace this user and group are the same, and the only ones.
bool mapSelf(uid_t user, gid_t group)
{
    const auto line = [](unsigned id) { return std::to_string(id) + ' ' + std::to_string(id) + " 1"; };
    return writeTo("/proc/self/setgroups", "deny") && writeTo("/proc/self/uid_map", line(user)) &&
           writeTo("/proc/self/gid_map", line(group));
}

bool dropCapabilities()
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return syscall(SYS_capset, &header, none) == 0;
}

/// A network of its own, with nothing in it. Root has the right to one; whoever else gets it with a user
/// namespace, as the browser's own sandbox does.
bool leaveNetwork()
{
    if (geteuid() == 0) return unshare(CLONE_NEWNET) == 0 && dropCapabilities();
    const uid_t user = geteuid();
    const gid_t group = getegid();
    return unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0 && mapSelf(user, group) && dropCapabilities();
}

} // namespace

bool confineBrowser()
{
    // The first to go where memory runs out, before the person's own programs.
    writeTo("/proc/self/oom_score_adj", std::to_string(Bounds::oomScore));
    return leaveNetwork() && limitAll() && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && filterCalls();
}

} // namespace kestro

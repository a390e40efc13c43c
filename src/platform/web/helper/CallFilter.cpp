#include "platform/web/helper/CallFilter.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <seccomp.h>
#include <type_traits>

namespace kestro {

namespace {

// By name: not every machine has each.
constexpr const char* refused[] = {
    // other processes
    "ptrace", "process_vm_readv", "process_vm_writev", "process_madvise", "pidfd_getfd", "kcmp",
    "perf_event_open", "migrate_pages", "move_pages",
    // keys
    "add_key", "request_key", "keyctl",
    // code in the system
    "bpf", "init_module", "finit_module", "delete_module", "create_module", "kexec_load", "kexec_file_load",
    // files that are not there by name, file systems, namespaces of others
    "mount", "umount", "umount2", "pivot_root", "move_mount", "open_tree", "fsopen", "fsconfig", "fsmount",
    "fspick", "mount_setattr", "setns", "swapon", "swapoff", "quotactl", "quotactl_fd", "acct",
    "name_to_handle_at", "open_by_handle_at", "fanotify_init", "lookup_dcookie",
    // the machine
    "reboot", "settimeofday", "clock_settime", "clock_adjtime", "adjtimex", "stime", "sethostname",
    "setdomainname", "iopl", "ioperm", "syslog", "vhangup", "nfsservctl",
    // where faults of the system were found most
    "userfaultfd", "io_uring_setup", "io_uring_enter", "io_uring_register", "modify_ldt", "vm86", "vm86old",
    "uselib", "ustat", "sysfs", "_sysctl", "remap_file_pages", "vmsplice"};

struct Release {
    void operator()(void* filter) const { seccomp_release(filter); }
};

} // namespace

bool filterCalls()
{
    const std::unique_ptr<std::remove_pointer_t<scmp_filter_ctx>, Release> filter(
        seccomp_init(SCMP_ACT_ALLOW));
    if (!filter) return false;
    const bool isComplete = std::ranges::all_of(refused, [&filter](const char* name) {
        const int call = seccomp_syscall_resolve_name(name);
        return call == __NR_SCMP_ERROR || seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(EPERM), call, 0) == 0;
    });
    return isComplete && seccomp_load(filter.get()) == 0;
}

} // namespace kestro

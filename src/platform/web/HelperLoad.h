#pragma once

#include "platform/base/Bounds.h"

#include <sys/types.h>

namespace kestro {

/// What a process and all that it has started take of the machine; at first, the most that the web helper
/// may.
struct HelperLoad {
    qint64 bytes = Bounds::webHelperBytes; ///< memory of their own, and what they share or hold open
    int processes = Bounds::webHelperProcesses;
    int threads = Bounds::webHelperThreads;
};

/// What they take now, as far as can be told; nothing where there is no such process. Any thread.
[[nodiscard]] HelperLoad loadOf(pid_t process);

} // namespace kestro

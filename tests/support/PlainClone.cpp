// For the thread sanitizer of GCC 12, which counts a clone() that lends its memory to the child, as Qt starts
// programs, as two ends of a fork, and then looks away from all locks of the calling thread. Whoever calls
// clone() in a test program gets the C library's own.

#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <sched.h>
#include <sys/types.h>

using Clone = int(int (*)(void*), void*, int, void*, ...);

static Clone* cloneOfCLibrary()
{
    void* const library = dlopen("libc.so.6", RTLD_LAZY | RTLD_NOLOAD);
    void* const function = library ? dlsym(library, "clone") : nullptr;
    if (!function) std::abort();
    return reinterpret_cast<Clone*>(function);
}

int clone(int (*begin)(void*), void* stack, int flags, void* argument, ...) noexcept
{
    static Clone* const real = cloneOfCLibrary();
    std::va_list more;
    va_start(more, argument);
    auto* const parentNumber = va_arg(more, pid_t*);
    void* const storage = va_arg(more, void*);
    auto* const childNumber = va_arg(more, pid_t*);
    va_end(more);
    return real(begin, stack, flags, argument, parentNumber, storage, childNumber);
}

// Preloaded into a program that saves a file: kills it in the middle. KILL_BELOW is the beginning of the
// paths that count, KILL_AT the number of the call at which the program ends: each call that changes
// something below that path counts. A write is half done by then, any other call not begun.

#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

bool lies(const char* path)
{
    const char* const below = std::getenv("KILL_BELOW");
    return below && path && std::strncmp(path, below, std::strlen(below)) == 0;
}

bool lies(int descriptor)
{
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path - 1);
    if (length <= 0) return false;
    path[length] = '\0';
    return lies(path);
}

/// Counts a call, and answers whether it is the one.
bool isTheOne()
{
    static int calls = 0;
    const char* const at = std::getenv("KILL_AT");
    return at && ++calls == std::atoi(at);
}

void endHere()
{
    raise(SIGKILL);
}

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

int opened(const char* name, const char* path, int flags, mode_t mode)
{
    if ((flags & O_ACCMODE) != O_RDONLY && lies(path) && isTheOne()) endHere();
    return next<int (*)(const char*, int, ...)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list more)
{
    return flags & (O_CREAT | O_TMPFILE) ? va_arg(more, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = modeOf(flags, more);
    va_end(more);
    return opened("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = modeOf(flags, more);
    va_end(more);
    return opened("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    const auto writes = next<ssize_t (*)(int, const void*, size_t)>("write");
    if (lies(descriptor) && isTheOne()) {
        static_cast<void>(!writes(descriptor, bytes, count / 2));
        endHere();
    }
    return writes(descriptor, bytes, count);
}

ssize_t writev(int descriptor, const iovec* pieces, int count)
{
    if (lies(descriptor) && isTheOne()) endHere();
    return next<ssize_t (*)(int, const iovec*, int)>("writev")(descriptor, pieces, count);
}

int fsync(int descriptor)
{
    if (lies(descriptor) && isTheOne()) endHere();
    return next<int (*)(int)>("fsync")(descriptor);
}

int fdatasync(int descriptor)
{
    if (lies(descriptor) && isTheOne()) endHere();
    return next<int (*)(int)>("fdatasync")(descriptor);
}

int fchmod(int descriptor, mode_t mode)
{
    if (lies(descriptor) && isTheOne()) endHere();
    return next<int (*)(int, mode_t)>("fchmod")(descriptor, mode);
}

int chmod(const char* path, mode_t mode)
{
    if (lies(path) && isTheOne()) endHere();
    return next<int (*)(const char*, mode_t)>("chmod")(path, mode);
}

int rename(const char* from, const char* to)
{
    if ((lies(from) || lies(to)) && isTheOne()) endHere();
    return next<int (*)(const char*, const char*)>("rename")(from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags)
{
    if ((lies(from) || lies(to)) && isTheOne()) endHere();
    return next<int (*)(int, const char*, int, const char*, unsigned)>("renameat2")(fromFolder, from,
                                                                                    toFolder, to, flags);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags)
{
    if (lies(to) && isTheOne()) endHere();
    return next<int (*)(int, const char*, int, const char*, int)>("linkat")(fromFolder, from, toFolder, to,
                                                                            flags);
}

int unlink(const char* path)
{
    if (lies(path) && isTheOne()) endHere();
    return next<int (*)(const char*)>("unlink")(path);
}

int remove(const char* path)
{
    if (lies(path) && isTheOne()) endHere();
    return next<int (*)(const char*)>("remove")(path);
}

} // extern "C"

// The program `kestro` as the shell finds it. It becomes the program that does what is asked for, so that the
// window with the settings does not wait until all that a saver needs is loaded. It needs no library of ours.
// Tested by test_usage.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace {

/// The folder of the package's other programs.
std::filesystem::path programs()
{
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    return (self.parent_path() / KESTRO_LIBRARIES_FROM_PROGRAMS).lexically_normal();
}

} // namespace

int main(int count, char** words)
{
    const auto folder = programs();
    // What else is said about the settings, and a window that cannot be had, the commands have an answer for.
    if (count == 2 && std::strcmp(words[1], "settings") == 0)
        execl((folder / "kestro-settings").c_str(), words[0], static_cast<char*>(nullptr));
    if (count >= 2 && std::strcmp(words[1], "idle") == 0) {
        const auto idle = folder / "kestro-idle";
        words[1] = words[0];
        execv(idle.c_str(), words + 1);
    }
    const auto commands = folder / "kestro";
    execv(commands.c_str(), words);
    std::fprintf(stderr, "kestro: Cannot start %s: %s\n", commands.c_str(), std::strerror(errno));
    return EXIT_FAILURE;
}

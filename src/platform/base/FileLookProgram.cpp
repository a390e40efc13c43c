// Looks at files for a process that must not wait for their disk: one that never answers holds whoever asked.
//
// usage: kestro-file-look PATH
//        kestro-file-look --below PATH...
//        kestro-file-look --movies PATH [recursive] [newest] [hurried] [once] [list]
//
// Of a PATH it answers by its exit status: 0 when it is there, 1 when it is not. A file of the usual kind, or
// a folder, is opened and read as well, so that whoever does that next need not wait for a disk that answers
// some questions and others not.
//
// After --below it writes each PATH that is a file, and the files below each that is a folder, without those
// that are hidden or behind a link to a folder. A zero byte follows each of them, and another one those of
// each PATH.
//
// After --movies it follows what a folder holds, or a list: see FolderFollow.h. Tested by FileLookTest,
// FileWalkTest and FolderWatchTest.

#include "platform/base/FolderFollow.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int mostNames = 100'000; ///< of a folder that are looked at

int look(const char* path)
{
    struct stat facts {};
    if (stat(path, &facts) != 0) return EXIT_FAILURE;
    std::error_code unreadable; // it is there all the same
    if (S_ISDIR(facts.st_mode)) std::filesystem::directory_iterator(path, unreadable);
    const int file = S_ISREG(facts.st_mode) ? open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC) : -1;
    char byte = 0;
    if (file >= 0 && read(file, &byte, 1) < 0) return EXIT_SUCCESS; // it is there all the same
    return EXIT_SUCCESS;
}

/// At once: whoever started this may not wait for its end.
void write(const char* name)
{
    std::fwrite(name, 1, std::strlen(name) + 1, stdout);
    std::fflush(stdout);
}

void writeBelow(const std::filesystem::path& folder)
{
    namespace fs = std::filesystem;
    std::error_code error;
    fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error);
    for (int looked = 0; !error && at != fs::recursive_directory_iterator() && looked < mostNames; ++looked) {
        std::error_code unknown;
        const bool isHidden = at->path().filename().native().starts_with('.');
        if (isHidden)
            at.disable_recursion_pending();
        else if (at->is_regular_file(unknown))
            write(at->path().c_str());
        at.increment(error);
    }
}

kestro::FolderQuestion questionIn(int argc, char** argv)
{
    const auto has = [&](const char* word) {
        return std::any_of(argv + 3, argv + argc,
                           [word](const char* each) { return std::strcmp(each, word) == 0; });
    };
    return {argv[2], has("recursive"), has("newest"), has("hurried"), has("once"), has("list")};
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 2 && std::strcmp(argv[1], "--movies") == 0)
        return kestro::followFolder(questionIn(argc, argv));
    const bool isWalk = argc > 2 && std::strcmp(argv[1], "--below") == 0;
    if (!isWalk) return argc == 2 ? look(argv[1]) : 2;
    for (int i = 2; i < argc; ++i) {
        std::error_code unknown;
        const auto kind = std::filesystem::status(argv[i], unknown).type();
        if (kind == std::filesystem::file_type::regular) write(argv[i]);
        if (kind == std::filesystem::file_type::directory) writeBelow(argv[i]);
        write("");
    }
    return EXIT_SUCCESS;
}

// Looks at a file, and answers by its exit status: 0 when it is there, 1 when it is not.
//
// usage: kestro-file-look PATH
//
// A file of the usual kind is opened and read as well, so that whoever does that next need not wait for a
// disk that answers some questions and others not. A program of its own, because a disk that never answers
// holds whoever asked. Tested by FileLookTest.

#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    struct stat facts {};
    if (stat(argv[1], &facts) != 0) return EXIT_FAILURE;
    const int file =
        S_ISREG(facts.st_mode) ? open(argv[1], O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC) : -1;
    char byte = 0;
    if (file >= 0 && read(file, &byte, 1) < 0) return EXIT_SUCCESS; // it is there all the same
    return EXIT_SUCCESS;
}

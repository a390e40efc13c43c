// Looks whether a file is a movie that is whole, for a process that has more to lose.
//
// usage: kestro-movie-look PATH
//
// Its exit status is 0 where it is; otherwise the reason is on standard output. Tested by MovieCheckTest.

#include "host/start/Confinement.h"
#include "platform/movie/WholeMovie.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

namespace {

constexpr std::chrono::seconds longest{300};
constexpr rlim_t mostOpenFiles = 32;
constexpr rlim_t mostWritten = 64UL * 1024;

void giveUpWhatIsNotNeeded()
{
    kestro::confineProcess();
    const auto bound = [](auto resource, rlim_t most) {
        const rlimit limit{most, most};
        setrlimit(resource, &limit);
    };
    bound(RLIMIT_NOFILE, mostOpenFiles);
    bound(RLIMIT_FSIZE, mostWritten);
    bound(RLIMIT_CPU, static_cast<rlim_t>(longest.count()));
}

} // namespace

int main(int count, char** words)
{
    if (count != 2) return 2;
    giveUpWhatIsNotNeeded();
    const auto checked = kestro::checkWholeMovie(QFile::decodeName(words[1]), longest);
    if (checked) return EXIT_SUCCESS;
    std::fputs(qPrintable(kestro::plainWords(checked.failure())), stdout);
    return EXIT_FAILURE;
}

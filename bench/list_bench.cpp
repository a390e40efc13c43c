#include "TrailerRecords.h"
#include "platform/base/Log.h"
#include "trailers/TrailerList.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sys/resource.h>
#include <vector>

// Times the list of scanned trailers at a size that no site has. usage: list_bench [RECORDS]

namespace kestro {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr int rounds = 5;

template <typename Work>
double medianSeconds(Work work)
{
    std::vector<double> taken;
    for (int round = 0; round < rounds; ++round) {
        const auto begun = std::chrono::steady_clock::now();
        work();
        taken.push_back(Seconds(std::chrono::steady_clock::now() - begun).count());
    }
    std::ranges::sort(taken);
    return taken[rounds / 2];
}

long peakMegabytes()
{
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    return used.ru_maxrss / 1024;
}

int report(const char* what, double value, const char* unit, double most)
{
    std::printf("  %-24s %8.1f %s (at most %.0f)%s\n", what, value, unit, most,
                value > most ? " MISSED" : "");
    return value > most ? 1 : 0;
}

int run(int count)
{
    const QTemporaryDir home;
    {
        TrailerList list(home.path(), {});
        list.store(trailerRecords(count));
        for (int i = 0; i < count / 4; ++i)
            list.addPassed("http://trailers.example/trailers/studio/title_number_" + std::to_string(i) + "/");
        if (!list.saveList()) return 1;
    }
    const long before = peakMegabytes();
    TrailerList list(home.path(), {});
    const double load = medianSeconds([&] { list.load(); });
    const double save = medianSeconds([&] { list.saveList(); });
    const double latest = medianSeconds([&] {
        if (list.lastTrailers(6, 480, {}).size() != 6) std::abort();
    });
    const auto file = QFileInfo(list.file().path()).size();
    std::printf("list: %d records, a file of %.1f MB\n", count, static_cast<double>(file) / 1e6);
    int missed = report("load", load * 1e3, "ms", 600);
    missed += report("save", save * 1e3, "ms", 700);
    missed += report("lastTrailers(6, 480)", latest * 1e3, "ms", 100);
    std::printf("  %-24s %8ld MB (%ld MB before)\n", "peak memory", peakMegabytes(), before);
    return missed == 0 ? 0 : 1;
}

} // namespace

} // namespace kestro

int main(int argc, char** argv)
{
    return kestro::run(argc > 1 ? std::atoi(argv[1]) : 100000);
}

#include "trailers/PageBase.h"
#include "trailers/PageParser.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

// Times the page parser: usage: parse_bench FILE. The file is one page; it is read whole, then its links and
// movies are taken several times. Prints the median of the processor seconds, and what was found.

namespace {

constexpr int rounds = 7;

double processorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

std::vector<std::string_view> pagesOf(std::string_view text)
{
    constexpr std::string_view ending = "</html>\n";
    std::vector<std::string_view> pages;
    while (!text.empty()) {
        const auto end = text.find(ending);
        pages.push_back(text.substr(0, end == std::string_view::npos ? end : end + ending.size()));
        text.remove_prefix(pages.back().size());
    }
    return pages;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace kestro;
    QFile file(argc > 1 ? QFile::decodeName(argv[1]) : QString());
    const auto base = PageBase::from("http://trailers.example/trailers/studio/");
    if (!file.open(QIODevice::ReadOnly) || !base) return 1;
    const QByteArray bytes = file.readAll();
    const auto pages = pagesOf({bytes.data(), std::size_t(bytes.size())});
    const PageParser parser([](const QUrl&) { return QByteArray(); }, QStringLiteral("2008/03/14"),
                            [] { return true; });
    std::size_t links = 0;
    std::size_t movies = 0;
    std::vector<double> taken;
    for (int round = 0; round < rounds; ++round) {
        links = movies = 0;
        const double begun = processorSeconds();
        for (const std::string_view page : pages) {
            links += parser.linkListFromStringBase(page, *base).size();
            movies += parser.movieListFromStringBase(page, *base).size();
        }
        taken.push_back(processorSeconds() - begun);
    }
    std::ranges::sort(taken);
    std::printf("%.6f %zu %zu\n", taken[rounds / 2], links, movies);
    return 0;
}

#include "platform/display/surface/Surface.h"
#include "platform/display/view/AlignedImage.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/movie/StillMovie.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <thread>
#include <vector>

// What stills cost, and whether the movie that plays meanwhile loses pictures. usage: still_bench MOVIE

namespace kestro {

namespace {

constexpr double betweenStills = 0.55; ///< seconds, as the trail takes them
constexpr int stills = 21;
constexpr int playedMilliseconds = 10000;
constexpr int rounds = 5;

double processorMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

template <typename Number>
Number median(std::vector<Number> numbers)
{
    std::ranges::sort(numbers);
    return numbers[numbers.size() / 2];
}

/// The movie once it is loaded; ends the program where there is none.
std::shared_ptr<QTMovie> loaded(MovieLibrary& library, const QUrl& url)
{
    auto movie = library.movieWithURL(url);
    while (movie && movie->state() == QTMovie::State::Loading)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    if (!movie || movie->state() == QTMovie::State::Failed) std::exit(1);
    return movie;
}

/// Every still but the first, which opens the movie.
void measureStills(MovieLibrary& library, const QUrl& url)
{
    const auto copy = loaded(library, url)->copyForStills();
    std::vector<double> costs;
    for (int i = 0; i < stills; ++i) {
        const double before = processorMilliseconds();
        if (copy->still(movieTimeFromSeconds(betweenStills * i)).isNull()) std::exit(1);
        if (i > 0) costs.push_back(processorMilliseconds() - before);
    }
    std::printf("still %.1f %.1f\n", median(costs), *std::ranges::max_element(costs));
}

/// Plays the movie, drawing each of its pictures; answers how many there were.
int picturesPlayed(MovieLibrary& library, const QUrl& url, bool takesStills)
{
    const auto movie = loaded(library, url);
    const auto copy = movie->copyForStills();
    const Size size = movie->naturalSize();
    QImage canvas = alignedImage({static_cast<int>(size.width), static_cast<int>(size.height)},
                                 QImage::Format_RGB32, Surface::guardRows);
    int pictures = 0;
    movie->layer().setPictureHandler([&] {
        const PixelTarget target{canvas.bits(), canvas.width(), canvas.height(),
                                 static_cast<int>(canvas.bytesPerLine())};
        if (movie->layer().render(target)) ++pictures;
    });
    movie->setMuted(true);
    movie->play();
    std::jthread capture;
    QTimer due;
    due.callOnTimeout([&] {
        const MovieTime time = movie->currentTime();
        capture = std::jthread([&copy, time] { static_cast<void>(copy->still(time)); });
    });
    if (takesStills) due.start(static_cast<int>(betweenStills * 1000));
    QTimer::singleShot(playedMilliseconds, qApp, &QGuiApplication::quit);
    QGuiApplication::exec();
    return pictures;
}

void measurePlay(MovieLibrary& library, const QUrl& url)
{
    std::vector<int> without;
    std::vector<int> with;
    for (int round = 0; round < rounds; ++round) {
        without.push_back(picturesPlayed(library, url, false));
        with.push_back(picturesPlayed(library, url, true));
    }
    std::printf("pictures %d %d\n", median(without), median(with));
}

} // namespace

} // namespace kestro

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    if (argc != 2) return 2;
    const QUrl url = QUrl::fromLocalFile(QString::fromLocal8Bit(argv[1]));
    kestro::MpvMovieLibrary library;
    kestro::measureStills(library, url);
    kestro::measurePlay(library, url);
    return 0;
}

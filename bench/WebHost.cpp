// What web_bench measures: web content in a movie view of 640 by 480 points, without a display.
//
// usage: web_host URL              shows it until ended
//        web_host URL MOVIE TURNS  shows it and the movie in turn, one second each, and says "turn N" after
//        each

#include "host/start/ProcessStart.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/view/Window.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"
#include "platform/web/HelperEngine.h"
#include "presentation/KTMovieView.h"

#include <QGuiApplication>
#include <QTimer>
#include <QUrl>

#include <clocale>
#include <cstdio>

using namespace kestro;

int main(int argc, char** argv)
{
    if (argc != 2 && argc != 4) return 2;
    prepareProcess();
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const SystemClock clock;
    SystemRandom random;
    QtTimerSource timers;
    const Rect frame{{0, 0}, {640, 480}};
    ImageDesktop desktop({frame}, 1.0, timers, clock, random);
    MpvMovieLibrary movies;
    HelperEngine engine(HelperSettings::ofPackage());
    Window window({frame, desktop.screens().front(), QStringLiteral("bench")});
    KTMovieView view(frame, {desktop, &engine});
    window.setContentView(&view);
    window.makeKeyAndOrderFront();

    const QUrl page(QString::fromLocal8Bit(argv[1]));
    const QUrl movie = argc > 2 ? QUrl::fromLocalFile(QString::fromLocal8Bit(argv[2])) : QUrl();
    const int turns = argc > 2 ? QByteArray(argv[3]).toInt() : 0;
    view.setMovie(page);
    if (turns == 0) return QGuiApplication::exec();

    int turn = 0;
    QTimer next;
    next.callOnTimeout([&] {
        ++turn;
        std::printf("turn %d\n", turn);
        std::fflush(stdout);
        if (turn >= turns) return QGuiApplication::quit();
        if (turn % 2 == 0) return view.setMovie(page);
        const std::shared_ptr<QTMovie> shown = movies.movieWithURL(movie);
        view.setMovie(shown);
        view.start(nullptr);
    });
    next.start(1000);
    return QGuiApplication::exec();
}

// Loads the saver bundle at a path, lets it run for some ticks on a screen in memory, and writes what is
// seen.
//
// usage: saver_drawer BUNDLE PNG

#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/surface/image/ImageSurface.h"
#include "platform/display/view/Window.h"
#include "platform/saver/SaverBundle.h"
#include "platform/saver/ScreenSaverView.h"

#include <QFile>
#include <QGuiApplication>

#include <cstdlib>

using namespace kestro;

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 3) return EXIT_FAILURE;
    const auto bundle = SaverBundle::load(QFile::decodeName(argv[1]));
    if (!bundle) {
        logLine(bundle.error());
        return EXIT_FAILURE;
    }
    const Rect frame{{0, 0}, {320, 240}};
    ManualClock clock;
    SeededRandom random(1);
    ManualTimerSource timers(clock);
    ImageDesktop desktop({frame}, 1.0, timers, clock, random);
    const auto principal = bundle.value().principalClass();
    const auto view = principal ? principal->initWithFrameIsPreview(frame, false, desktop) : nullptr;
    if (!view) return EXIT_FAILURE;
    Screen& screen = *desktop.mainScreen();
    Window window({frame, &screen, QStringLiteral("drawer")});
    window.setContentView(view.get());
    window.orderFront();
    view->startAnimation();
    for (int tick = 0; tick < 20; ++tick) {
        timers.advance(view->animationTimeInterval());
        view->animateOneFrame();
        screen.update();
    }
    view->stopAnimation();
    const bool isSaved = ImageDesktop::surfaceOf(screen).canvas().save(QFile::decodeName(argv[2]));
    window.setContentView(nullptr);
    return isSaved ? EXIT_SUCCESS : EXIT_FAILURE;
}

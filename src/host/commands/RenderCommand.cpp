#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/render/PictureFolder.h"
#include "host/render/RenderOptions.h"
#include "host/render/RenderRun.h"
#include "host/render/TraceFile.h"
#include "host/session/KestroBundle.h"
#include "host/session/SaverSession.h"
#include "host/start/Confinement.h"
#include "host/start/GuiStart.h"
#include "host/start/StopSignals.h"
#include "host/start/StopThread.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/base/Translations.h"
#include "platform/display/desktop/ImageDesktop.h"
#include "platform/display/desktop/QtTimerSource.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/SharingDesktop.h"
#include "platform/display/gl/OpenGL.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/saver/ScreenSaverView.h"
#include "settings/Options.h"

#include <QGuiApplication>

namespace kestro {

namespace {

/// Screens side by side, from the origin to the right.
std::vector<Rect> screenFrames(const RenderOptions& options)
{
    const Size size{static_cast<float>(options.size.width()), static_cast<float>(options.size.height())};
    std::vector<Rect> frames;
    frames.reserve(static_cast<std::size_t>(options.screens));
    for (int i = 0; i < options.screens; ++i)
        frames.push_back({{static_cast<float>(i) * size.width, 0}, size});
    return frames;
}

/// As the pictures are.
void nameScreens(const Desktop& desktop)
{
    int number = 0;
    for (Screen* screen : desktop.screens())
        screen->setName(QStringLiteral("screen%1").arg(number++));
}

int runOffScreen(const RenderOptions& options, const PictureFolder& pictures, TraceFile* trace)
{
    beFirstToGo();
    const auto application = startGuiOffScreen();
    const Translations translations;
    const auto principal = kestroSaver();
    if (!principal) return ExitFailure;
    principal->setOptionsForThisRun({storedOption(option::leavesNothing, true)});

    QtTimerSource timers;
    const SystemClock clock;
    SystemRandom random;
    ImageDesktop monitors(screenFrames(options), 1, timers, clock, random, chooseOpenGLOffScreen());
    nameScreens(monitors);
    const auto shared = SharingDesktop::over(monitors, options.choice);
    Desktop& desktop = shared ? static_cast<Desktop&>(*shared) : monitors;
    SaverSession session(
        desktop, [&](const Rect& frame) { return principal->initWithFrameIsPreview(frame, false, desktop); });
    RenderRun run(desktop, monitors, session, pictures, trace, options);
    std::optional<TimeToSave> time; // pictures that were drawn are written
    const StopSignals signalWatch([&](int) {
        time.emplace();
        run.endEarly();
    });
    return run.exec();
}

int render(const Arguments& arguments)
{
    const auto options = RenderOptions::from(arguments);
    if (!options) {
        printError(options.error() + QStringLiteral(" (see kestro render --help)"));
        return ExitWrongUsage;
    }
    const auto pictures = PictureFolder::open(options.value().folder);
    if (!pictures) {
        printError(pictures.error());
        return ExitFailure;
    }
    std::unique_ptr<TraceFile> trace;
    if (!options.value().traceFile.isEmpty()) {
        auto made = TraceFile::create(options.value().traceFile);
        if (!made) {
            printError(made.error());
            return ExitFailure;
        }
        trace = std::move(made.value());
    }
    return runOffScreen(options.value(), pictures.value(), trace.get());
}

} // namespace

Command renderCommand()
{
    return {RenderOptions::syntax(), render};
}

} // namespace kestro

#include "host/RunCommand.h"

#include "host/GuiStart.h"
#include "host/KestroBundle.h"
#include "host/Program.h"
#include "host/SaverSession.h"
#include "host/StopSignals.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/QtDesktop.h"
#include "platform/saver/ScreenSaverView.h"

#include <QGuiApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace kestro {

namespace {

/// Stops every view, which stores what is to be kept, and leaves the process without taking it apart: that
/// would wait for players and fetches, up to the time limit of a server that does not answer, and whoever
/// ends a screen saver wants the screen now. The display server takes the windows away with the connection.
[[noreturn]] void leave(SaverSession& session, ExitCode status)
{
    session.stop();
    std::fflush(nullptr);
    std::_Exit(status);
}

int runFullScreen(const Arguments&)
{
    const auto application = startGui();
    const auto principal = kestroSaver();
    if (!principal) return ExitFailure;

    const SystemClock clock;
    SystemRandom random;
    QtDesktop desktop(clock, random);
    SaverSession session(
        desktop, [&](const Rect& frame) { return principal->initWithFrameIsPreview(frame, false, desktop); });
    const auto leaveWell = [&] { leave(session, ExitSuccess); };
    const StopSignals signalWatch(leaveWell);
    session.setWakeHandler(leaveWell);

    const auto start = [&] {
        // Before the savers start: opening the first movie may take a while, and every screen is black
        // meanwhile.
        desktop.showSurfaces();
        if (!session.start()) leave(session, ExitFailure);
    };
    QTimer::singleShot(0, application.get(), start);
    QGuiApplication::exec();
    leave(session, ExitSuccess);
}

} // namespace

Command runCommand()
{
    const Option version{QStringLiteral("version"), {}, QStringLiteral("show the version")};
    return {{{},
             QStringLiteral(
                 "Movies as a screen saver, now, on every screen. A key, a click or the mouse ends it."),
             {version}},
            runFullScreen};
}

} // namespace kestro

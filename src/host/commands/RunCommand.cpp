// Tested by test_display and test_session.

#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "host/commands/RunOptions.h"
#include "host/session/KestroBundle.h"
#include "host/session/RestSchedule.h"
#include "host/session/SaverSession.h"
#include "host/session/SessionControl.h"
#include "host/session/SessionKeys.h"
#include "host/start/Confinement.h"
#include "host/start/DisplayLoss.h"
#include "host/start/GuiStart.h"
#include "host/start/StopSignals.h"
#include "host/start/StopThread.h"
#include "idle/IdleOptions.h"
#include "idle/KeyOptions.h"
#include "idle/PowerOptions.h"
#include "idle/ScreensOptions.h"
#include "platform/base/Clock.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/base/Translations.h"
#include "platform/display/desktop/QtDesktop.h"
#include "platform/display/desktop/SharingDesktop.h"
#include "platform/display/desktop/WindowDesktop.h"
#include "platform/display/gl/DriverEnvironment.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/saver/ScreenSaverView.h"
#include "platform/session/PowerAdvice.h"

#include <QGuiApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace kestro {

namespace {

/// Stops every view, which stores what is to be kept. A display server or a disk that stands still does not
/// hold the process up: the thread that takes the stop signals ends it then.
void stop(SaverSession& session)
{
    beginEnd();
    session.stop();
    std::fflush(nullptr);
}

/// Stops, and leaves the process without taking it apart: that would wait for players and fetches, up to the
/// time limit of a server that does not answer, and whoever ends a screen saver wants the screen now. The
/// display server takes the windows away with the connection.
[[noreturn]] void leave(SaverSession& session, ExitCode status)
{
    stop(session);
    std::_Exit(status);
}

/// The same, by the signal that asked for it: xscreensaver takes the end of a hack for a crash where the hack
/// ends otherwise.
[[noreturn]] void leaveBySignal(SaverSession& session, int signal)
{
    stop(session);
    endBySignal(signal);
}

[[noreturn]] void leaveDesktop(SaverSession& session, QtDesktop& desktop)
{
    stop(session);
    desktop.giveBackFocus();
    std::_Exit(ExitSuccess);
}

/// Ends because a person did something. The pictures go at once, but the process stays until the key or the
/// button is up again, so that no other program gets any of it.
void wake(SaverSession& session, QtDesktop& desktop)
{
    beginEnd();
    desktop.hideSurfaces();
    stop(session);
    beginEnd(std::chrono::seconds(QtDesktop::longestPress));
    desktop.whenLetGo([&] { leaveDesktop(session, desktop); });
}

SaverSession::ViewFactory viewsOf(const PrincipalClass& principal, bool isPreview, Desktop& desktop)
{
    return [&principal, isPreview, &desktop](const Rect& frame) {
        return principal.initWithFrameIsPreview(frame, isPreview, desktop);
    };
}

/// Shows the surfaces and starts the savers, inside the event loop, and stays in it. The surfaces come first:
/// opening the first movie may take a while, and every screen is black meanwhile.
[[noreturn]] void play(SaverSession& session, const std::function<void()>& showSurfaces)
{
    const auto start = [&] {
        showSurfaces();
        if (!session.start()) leave(session, ExitFailure);
    };
    QMetaObject::invokeMethod(qGuiApp, start, Qt::QueuedConnection);
    QGuiApplication::exec();
    leave(session, ExitSuccess);
}

/// Has the savers rest as the person's rule for batteries says, as long as the answer is there.
std::unique_ptr<PowerAdvice> powerFor(RestSchedule& rests, const ConfigurationFile& file)
{
    return std::make_unique<PowerAdvice>(
        powerRuleFrom(file), PowerAdvice::systemBus(),
        [&rests](PowerChoice choice, const QString& reason) { rests.setPower(choice, reason); });
}

void takeKeys(std::optional<SessionKeys>& keys, SaverSession& session, QtDesktop& desktop)
{
    desktop.tellKeys();
    keys.emplace(session);
}

int runFullScreen(const RunOptions& options)
{
    if (rendererWish() != RendererWish::Software) prepareDrivers();
    const auto application = startGui();
    const Translations translations;
    const auto principal = kestroSaver();
    if (!principal) return ExitFailure;
    principal->setOptionsForThisRun(options.settings);

    const ConfigurationFile file = ConfigurationFile::ofUser();
    const auto configured = IdleOptions::from(file);
    const SystemClock clock;
    SystemRandom random;
    QtDesktop desktop(clock, random);
    const auto shared = SharingDesktop::over(desktop, options.screens.over(screenChoiceFrom(file)));
    Desktop& shown = shared ? static_cast<Desktop&>(*shared) : desktop;
    SaverSession session(shown, viewsOf(*principal, false, shown));
    const StopSignals signalWatch([&](int) { leaveDesktop(session, desktop); });
    const DisplayLoss lossWatch([&] { leave(session, ExitFailure); });
    RestSchedule rests(desktop.timers(), [&](Rest how) { session.rest(how); });
    const auto power = powerFor(rests, file);
    const auto control =
        SessionControl::isWanted(file)
            ? std::make_unique<SessionControl>(session, [&] { leaveDesktop(session, desktop); })
            : nullptr;
    std::optional<SessionKeys> keys;
    if (KeyOptions::from(file).isEnabled) takeKeys(keys, session, desktop);
    session.setWakeHandler([&] { wake(session, desktop); });
    play(session, [&] {
        desktop.showSurfaces();
        rests.stopAfter(options.stopAfter.value_or(configured.stopAfter));
    });
}

void tellOfScreens(const ScreenChoice& choice)
{
    if (choice == ScreenChoice()) return;
    logLine(QStringLiteral("In a window that another program hands over, what is chosen about the monitors "
                           "does not apply: there is a saver for each."));
}

// No wake handler: what a person does is its parent's business, and so is the end.
int runInWindow(const RunOptions& options)
{
    const auto application = startGuiInGivenWindow();
    const Translations translations;
    const auto principal = kestroSaver();
    if (!principal) return ExitFailure;
    principal->setOptionsForThisRun(options.settings);

    const ConfigurationFile file = ConfigurationFile::ofUser();
    tellOfScreens(options.screens.over(screenChoiceFrom(file)));
    const SystemClock clock;
    SystemRandom random;
    const auto desktop = WindowDesktop::create(options.window, clock, random);
    if (!desktop) {
        printError(desktop.error());
        return ExitFailure;
    }
    SaverSession session(*desktop.value(), viewsOf(*principal, options.isPreview, *desktop.value()));
    const StopSignals signalWatch([&](int signal) { leaveBySignal(session, signal); });
    const DisplayLoss lossWatch([&] { leave(session, ExitFailure); });
    RestSchedule rests(desktop.value()->timers(), [&](Rest how) { session.rest(how); });
    const auto power = options.isPreview ? nullptr : powerFor(rests, file);
    desktop.value()->setGoneHandler([&] { leave(session, ExitSuccess); });
    play(session, [&] { desktop.value()->showSurface(); });
}

int run(const Arguments& arguments)
{
    const auto options = RunOptions::from(arguments, qEnvironmentVariable("XSCREENSAVER_WINDOW"));
    beFirstToGo();
    if (options)
        return options.value().isInWindow ? runInWindow(options.value()) : runFullScreen(options.value());
    printError(QStringLiteral("%1 (see kestro --help)").arg(options.error()));
    return ExitWrongUsage;
}

} // namespace

Command runCommand()
{
    return {RunOptions::syntax(), run};
}

} // namespace kestro

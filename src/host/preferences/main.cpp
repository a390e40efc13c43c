#include "config_ui/ConfigSheet.h"
#include "host/KestroBundle.h"
#include "host/preferences/LazyTrailerBrowser.h"
#include "host/preferences/PreferencesWindow.h"
#include "host/start/Console.h"
#include "host/start/GuiStart.h"
#include "host/start/ProcessStart.h"
#include "host/start/StopSignals.h"
#include "platform/base/Paths.h"
#include "platform/base/Translations.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/saver/ScreenSaverView.h"
#include "trailers/TrailerCont.h"
#include "trailers/panel/TrailerPanel.h"

#include <QApplication>
#include <QSettings>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace kestro {

namespace {

constexpr unsigned patience = 2; // seconds

/// Leaves the process without taking it apart, which would wait for players and fetches. A disk that stands
/// still does not hold it up.
[[noreturn]] void leave(PreferencesWindow& window, TrailerBrowser& trailers)
{
    alarm(patience);
    window.end();
    trailers.close();
    std::fflush(nullptr);
    std::_Exit(ExitSuccess);
}

std::unique_ptr<QGuiApplication> startWidgets()
{
    auto application =
        startGuiWith([](int& count, char** words) { return std::make_unique<QApplication>(count, words); });
    QGuiApplication::setDesktopFileName(QStringLiteral("kestro-settings"));
    QGuiApplication::setWindowIcon(
        QIcon(packagePrefix() + QStringLiteral("/lib/kestro/Kestro.saver/Contents/Resources/kestro.svg")));
    return application;
}

SaverPreview::ViewFactory viewsOf()
{
    return [](const Rect& frame, Desktop& desktop) -> std::shared_ptr<ScreenSaverView> {
        const auto principal = kestroSaver();
        return principal ? principal->initWithFrameIsPreview(frame, true, desktop) : nullptr;
    };
}

int showSettings()
{
    const auto application = startWidgets();
    const Translations translations;
    const QString program = packagePrefix() + QStringLiteral("/bin/kestro");
    QSettings state(homeFolder() + QStringLiteral("/.config/kestro/settings-window.conf"),
                    QSettings::IniFormat);
    MpvMovieLibrary movies;
    LazyTrailerBrowser trailers(
        [&movies] { return std::make_unique<TrailerPanel>(TrailerCont::sharedController(), movies); });
    const auto sheet = [&trailers, &state](ConfigurableSaver& saver, QWidget* over) {
        return new ConfigSheet(saver, &trailers, over, &state);
    };
    PreferencesWindow window({viewsOf(), sheet, program, XscreensaverList::ofUser(program), state});
    const StopSignals signalWatch([&](int) { leave(window, trailers); });
    QObject::connect(&window, &PreferencesWindow::closed, [&] { leave(window, trailers); });
    window.show();
    return QApplication::exec();
}

} // namespace

} // namespace kestro

int main(int argc, char**)
{
    kestro::prepareProcess();
    if (argc == 1) return kestro::showSettings();
    kestro::complain(QStringLiteral("kestro-settings takes no arguments (see kestro settings --help)"));
    return kestro::ExitWrongUsage;
}

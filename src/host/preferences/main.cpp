#include "host/preferences/PreferencesWindow.h"
#include "host/preferences/PreviewLibrary.h"
#include "host/start/Console.h"
#include "host/start/GuiStart.h"
#include "host/start/ProcessStart.h"
#include "host/start/StopSignals.h"
#include "host/start/StopThread.h"
#include "platform/base/Paths.h"
#include "platform/base/Translations.h"

#include <QApplication>
#include <QSettings>

#include <cstdio>
#include <cstdlib>

namespace kestro {

namespace {

/// Leaves the process without taking it apart, which would wait for players and fetches. A disk that stands
/// still does not hold it up.
[[noreturn]] void leave(PreferencesWindow& window)
{
    beginEnd();
    window.end();
    std::fflush(nullptr);
    std::_Exit(ExitSuccess);
}

std::unique_ptr<QGuiApplication> startWidgets()
{
    auto application =
        startGuiWith([](int& count, char** words) { return std::make_unique<QApplication>(count, words); });
    QGuiApplication::setDesktopFileName(QStringLiteral("kestro-settings"));
    return application;
}

void showIcon()
{
    QGuiApplication::setWindowIcon(
        QIcon(packageLibraries() + QStringLiteral("/Kestro.saver/Contents/Resources/kestro.svg")));
}

int showSettings()
{
    const auto application = startWidgets();
    const Translations translations;
    QSettings state(homeFolder() + QStringLiteral("/.config/kestro/settings-window.conf"),
                    QSettings::IniFormat);
    // Whatever the window can do without for a moment is loaded once it is on the screen.
    const auto preview = [&state] {
        showIcon();
        return loadPreview(state);
    };
    PreferencesWindow window(
        {preview, kestroProgram(), IdleSwitch::placesOfUser(), XscreensaverList::ofUser(), state});
    const StopSignals signalWatch([&](int) { leave(window); });
    QObject::connect(&window, &PreferencesWindow::closed, [&] { leave(window); });
    window.show();
    return QApplication::exec();
}

} // namespace

} // namespace kestro

int main(int argc, char**)
{
    kestro::prepareProcess();
    if (argc == 1) return kestro::showSettings();
    kestro::printError(QStringLiteral("kestro-settings takes no arguments (see kestro settings --help)"));
    return kestro::ExitWrongUsage;
}

// Runs the saver bundle at a path on every monitor, as a host does, until a TERM, which stops it properly.
//
// usage: saver_probe BUNDLE

#include "host/session/HostedSaver.h"
#include "host/session/SaverSession.h"
#include "host/start/GuiStart.h"
#include "host/start/ProcessStart.h"
#include "host/start/StopSignals.h"
#include "platform/base/Clock.h"
#include "platform/base/Log.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/QtDesktop.h"
#include "platform/saver/SaverBundle.h"
#include "platform/saver/ScreenSaverView.h"

#include <QFile>
#include <QGuiApplication>

#include <cstdlib>

using namespace kestro;

int main(int argc, char** argv)
{
    if (argc != 2) return EXIT_FAILURE;
    prepareProcess();
    const auto application = startGui();
    const auto bundle = SaverBundle::load(QFile::decodeName(argv[1]));
    if (!bundle) {
        logLine(bundle.error());
        return EXIT_FAILURE;
    }
    const auto principal = bundle.value().principalClass();
    if (!principal || !principal->isScreenSaverView()) return EXIT_FAILURE;
    const SystemClock clock;
    SystemRandom random;
    QtDesktop desktop(clock, random);
    SaverSession session(
        desktop, [&](const Rect& frame) { return principal->initWithFrameIsPreview(frame, false, desktop); });
    const StopSignals watch([&](int) {
        session.stop();
        QGuiApplication::exit();
    });
    const auto start = [&] {
        desktop.showSurfaces();
        if (!session.start()) std::_Exit(EXIT_FAILURE);
    };
    QMetaObject::invokeMethod(qGuiApp, start, Qt::QueuedConnection);
    return QGuiApplication::exec();
}

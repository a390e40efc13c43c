// kestro-web: draws the web pages of one saver process. Started by it, never by hand.

#include "platform/web/HelperProcess.h"
#include "platform/web/ProfileFolder.h"
#include "platform/web/helper/Guardian.h"
#include "platform/web/helper/Pages.h"
#include "platform/web/helper/RuffleScheme.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QtWebEngineQuick>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

// Of all that the browser and Qt have to say, the saver's log wants none: it hears what becomes of each page.
void hear(QtMsgType, const QMessageLogContext&, const QString&) {}

// The same for what the browser's processes write by themselves, last of all when they are ended.
void silenceOutput()
{
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

void setBrowserFlags()
{
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
            "--disable-gpu --disable-gpu-compositing --disable-logging --log-level=3 --disable-breakpad "
            "--disable-background-networking --disable-component-update --disable-domain-reliability "
            "--disable-sync --no-pings --disable-remote-fonts-preload --disable-notifications "
            "--disable-speech-api --disable-features=AudioServiceOutOfProcess,WebRtcHideLocalIpsWithMdns");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("kestro-web is started by kestro\n", stderr);
        return 2;
    }
    kestro::Descriptor channel(kestro::HelperProcess::channelNumber);
    const QString home = qEnvironmentVariable("HOME");
    const QString ruffle = QString::fromLocal8Bit(argv[1]);
    const kestro::Descriptor claim = kestro::ProfileFolder::claim(home, false);
    kestro::guardAgainstLoneliness(channel.number(), home);

    silenceOutput();
    setBrowserFlags();
    qInstallMessageHandler(hear);
    kestro::RuffleScheme::registerName();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QtWebEngineQuick::initialize();
    int count = 1;
    const QGuiApplication application(count, argv);
    QGuiApplication::setApplicationName(QStringLiteral("kestro-web"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const kestro::Pages pages(std::move(channel), ruffle);
    return QGuiApplication::exec();
}

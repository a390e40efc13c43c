// kestro-web: draws the web pages of one saver process. Started by it, never by hand.
// Tested by test_web_helper.

#include "platform/web/HelperProcess.h"
#include "platform/web/ProfileFolder.h"
#include "platform/web/helper/BrowserConfinement.h"
#include "platform/web/helper/Caller.h"
#include "platform/web/helper/Guardian.h"
#include "platform/web/helper/Pages.h"
#include "platform/web/helper/RuffleScheme.h"
#include "platform/web/helper/SiteScheme.h"

#include <QFile>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QtWebEngineQuick>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int wrongUsage = 2;

int refuse(const char* reason)
{
    std::fprintf(stderr, "kestro-web: %s\n", reason);
    return wrongUsage;
}

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
    // No name is looked up and no address connected to, which would not lead anywhere either. Of the Flash
    // player only what it calls is checked and compiled, and by one thread beside the page's: a Flash movie
    // shows in half the time for it, and costs no more afterwards.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
            "--disable-gpu --disable-gpu-compositing --disable-logging --log-level=3 --disable-breakpad "
            "--disable-background-networking --disable-component-update --disable-domain-reliability "
            "--disable-sync --no-pings --disable-remote-fonts-preload --disable-notifications "
            "--disable-speech-api --no-proxy-server --host-resolver-rules=\"MAP * ~NOTFOUND\" "
            "--force-webrtc-ip-handling-policy=disable_non_proxied_udp "
            "--disable-features=AudioServiceOutOfProcess,WebRtcHideLocalIpsWithMdns "
            "--js-flags=\"--wasm-lazy-compilation --wasm-lazy-validation --wasm-num-compilation-tasks=1\"");
}

int show(char* name, kestro::Descriptor channel, const QString& ruffle)
{
    silenceOutput();
    setBrowserFlags();
    qInstallMessageHandler(hear);
    kestro::RuffleScheme::registerName();
    kestro::SiteScheme::registerNames();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QtWebEngineQuick::initialize();
    int count = 1;
    char* words[] = {name, nullptr};
    const QGuiApplication application(count, words);
    QGuiApplication::setApplicationName(QStringLiteral("kestro-web"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const kestro::Pages pages(std::move(channel), ruffle);
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int line = kestro::helperChannelNumber;
    const QString home = argc == 3 ? QFile::decodeName(argv[1]) : QString();
    if (argc != 3 || !kestro::isLineToParent(line)) {
        // The saver may be gone by now, and cannot take its folder away.
        if (kestro::isLineLeftBy(line, kestro::ProfileFolder::makerOf(home)))
            kestro::ProfileFolder::remove(home);
        return refuse("is started by kestro, never by hand");
    }
    kestro::Descriptor channel(line);
    fcntl(line, F_SETFD, FD_CLOEXEC);
    umask(S_IRWXG | S_IRWXO);
    const kestro::Descriptor claim = kestro::ProfileFolder::claim(home, false);
    if (!claim.isOpen() || !kestro::ProfileFolder::isOne(home))
        return refuse("that folder is none of its own");
    if (!kestro::confineBrowser()) return refuse("cannot be confined on this system");
    kestro::endWithParent(channel.number(), home);
    return show(argv[0], std::move(channel), QFile::decodeName(argv[2]));
}

#include "platform/session/SwaySession.h"

#include "platform/session/WaylandConnection.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace kestro {

SwaySession::SwaySession()
{
    constexpr uid_t nobody = 65534;
    const QString folder = m_folder.path();
    QFile settings(m_folder.filePath(QStringLiteral("settings")));
    if (!settings.open(QIODevice::WriteOnly)) return;
    settings.write("xwayland disable\n");
    settings.close();
    QStringList command{QStringLiteral("sway"), QStringLiteral("-c"), settings.fileName()};
    if (getuid() == 0) {
        if (chown(folder.toUtf8().constData(), nobody, nobody) != 0) return;
        if (chown(settings.fileName().toUtf8().constData(), nobody, nobody) != 0) return;
        command = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                              QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups"),
                              QStringLiteral("--")} +
                  command;
    }
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    environment.insert(QStringLiteral("HOME"), folder);
    environment.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    environment.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    environment.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    m_process.setProcessEnvironment(environment);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(command.first(), command.mid(1));
    const QDir place(folder);
    QByteArray display;
    const bool isUp = waitUntil([&] {
        const QStringList sockets = place.entryList({QStringLiteral("wayland-?")}, QDir::System);
        if (!sockets.isEmpty()) display = place.filePath(sockets.first()).toUtf8();
        // The socket is there a moment before anybody listens.
        return (!display.isEmpty() && WaylandConnection::open(display)) ||
               m_process.state() == QProcess::NotRunning;
    });
    if (isUp) m_display = display;
}

SwaySession::~SwaySession()
{
    m_process.terminate();
    m_process.waitForFinished();
}

QString SwaySession::idleProtocol() const
{
    const auto connection = WaylandConnection::open(m_display);
    if (!connection) return {};
    if (connection->find("ext_idle_notifier_v1")) return QStringLiteral("ext-idle-notify-v1");
    return connection->find("org_kde_kwin_idle") ? QStringLiteral("org_kde_kwin_idle") : QString();
}

bool SwaySession::press() const
{
    QProcess tool;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QString::fromUtf8(m_display));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("wtype"), {QStringLiteral("a")});
    return waitUntil([&] { return tool.state() == QProcess::NotRunning; }) &&
           tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

void SwaySession::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

} // namespace kestro

#include "host/start/GuiStart.h"

#include "host/start/Console.h"
#include "host/start/DeafBuses.h"
#include "platform/base/Paths.h"

#include <QFile>
#include <QGuiApplication>
#include <QStringList>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace kestro {

namespace {

QString named(const char* variable)
{
    return QStringLiteral("%1=%2").arg(QString::fromLatin1(variable), qEnvironmentVariable(variable));
}

[[noreturn]] void leaveWithoutDisplay()
{
    printError(QStringLiteral("No display can be reached (%1 %2 %3)")
                   .arg(named("DISPLAY"), named("WAYLAND_DISPLAY"), named("QT_QPA_PLATFORM")));
    std::fflush(nullptr);
    // Nothing but the half-made application object exists yet, and that cannot be destroyed.
    std::_Exit(ExitFailure);
}

[[noreturn]] void leaveWithoutX11()
{
    printError(
        QStringLiteral("A window can be handed over under X11 alone, and DISPLAY names no X11 display"));
    std::exit(ExitFailure);
}

bool hasDisplay()
{
    const auto isSet = [](const char* variable) { return !qEnvironmentVariableIsEmpty(variable); };
    return isSet("QT_QPA_PLATFORM") || isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

/// Keeps what Qt says while the application object is made: it is of use only where that works out, and where
/// it does not Qt says a paragraph and aborts. One at a time.
class QuietStart final {
public:
    QuietStart() { qInstallMessageHandler(hear); }
    ~QuietStart()
    {
        qInstallMessageHandler(nullptr);
        for (const QString& message : std::as_const(messages()))
            qWarning("%s", qUtf8Printable(message));
    }

private:
    static QStringList& messages()
    {
        static QStringList heard;
        return heard;
    }
    static void hear(QtMsgType type, const QMessageLogContext&, const QString& message)
    {
        if (type == QtFatalMsg) leaveWithoutDisplay();
        messages().append(message);
    }
};

/// Where there is no session Qt would look for a display server in a folder of its own in /tmp, which it
/// makes and leaves there. What comes later, players of sound among them, sees the environment as it was.
class SessionForQt final {
public:
    SessionForQt()
        : m_isNeeded(qEnvironmentVariableIsEmpty(variable))
    {
        if (!m_isNeeded) return;
        const QByteArray folder = QFile::encodeName(temporaryFolder());
        qputenv(variable, folder.isEmpty() ? QByteArray("/dev/null") : folder);
    }
    ~SessionForQt()
    {
        if (m_isNeeded) qunsetenv(variable);
    }
    SessionForQt(const SessionForQt&) = delete;
    SessionForQt& operator=(const SessionForQt&) = delete;

private:
    static constexpr const char* variable = "XDG_RUNTIME_DIR";
    bool m_isNeeded;
};

std::unique_ptr<QGuiApplication> makeApplication(const ApplicationMaker& maker)
{
    // Qt keeps references to both. It gets none of the person's arguments: ours are checked, and it would
    // take its own from them. A menu of ours that had the keyboard and the pointer for itself would keep a
    // screen locker from locking.
    static char name[] = "kestro";
    static char noGrab[] = "-nograb";
    static char* words[] = {name, noGrab, nullptr};
    static int count = 2;
    const QuietStart quiet;
    const SessionForQt session;
    return maker(count, words);
}

} // namespace

std::unique_ptr<QGuiApplication> startGui()
{
    return startGuiWith(
        [](int& count, char** words) { return std::make_unique<QGuiApplication>(count, words); });
}

std::unique_ptr<QGuiApplication> startGuiWith(const ApplicationMaker& maker)
{
    if (!hasDisplay()) leaveWithoutDisplay();
    leaveDeafBuses();
    auto application = makeApplication(maker);
    QGuiApplication::setApplicationName(QStringLiteral("kestro"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // The application object has set the user's locale; libmpv refuses to start under one with another
    // decimal point.
    std::setlocale(LC_NUMERIC, "C");
    return application;
}

std::unique_ptr<QGuiApplication> startGuiInGivenWindow()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) leaveWithoutX11();
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
    for (const char* variable : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "SESSION_MANAGER"})
        qunsetenv(variable);
    return startGui();
}

std::unique_ptr<QGuiApplication> startGuiOffScreen()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    return startGui();
}

} // namespace kestro

#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "platform/base/Paths.h"
#include "platform/base/Reasons.h"

#include <QFile>

#include <cerrno>
#include <unistd.h>

namespace kestro {

// The commands that are programs of their own. Tested by test_usage.

namespace {

/// Becomes another program of the package; answers the exit status where that cannot be.
int become(const QString& name)
{
    const QByteArray program = QFile::encodeName(packageLibraries() + u'/' + name);
    execl(program.constData(), program.constData(), static_cast<char*>(nullptr));
    printError(QStringLiteral("Cannot start %1: %2").arg(QFile::decodeName(program), systemReason(errno)));
    return ExitFailure;
}

} // namespace

Command settingsCommand()
{
    return {{QStringLiteral("settings"), QStringLiteral("Open the window with the saver's settings"), {}},
            [](const Arguments&) { return become(QStringLiteral("kestro-settings")); }};
}

Command idleCommand()
{
    return {{QStringLiteral("idle"), QStringLiteral("Wait until you are away, and run the saver then"), {}},
            [](const Arguments&) { return become(QStringLiteral("kestro-idle")); }};
}

} // namespace kestro

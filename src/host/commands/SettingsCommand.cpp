#include "host/commands/Commands.h"
#include "host/commands/Program.h"
#include "platform/base/Paths.h"
#include "platform/base/Reasons.h"

#include <QFile>

#include <cerrno>
#include <unistd.h>

namespace kestro {

namespace {

int showSettingsWindow(const Arguments&)
{
    const QByteArray program = QFile::encodeName(packageLibraries() + QStringLiteral("/kestro-settings"));
    execl(program.constData(), program.constData(), static_cast<char*>(nullptr));
    printError(QStringLiteral("Cannot start %1: %2").arg(QFile::decodeName(program), systemReason(errno)));
    return ExitFailure;
}

} // namespace

Command settingsCommand()
{
    return {{QStringLiteral("settings"), QStringLiteral("Open the window with the saver's settings"), {}},
            showSettingsWindow};
}

} // namespace kestro

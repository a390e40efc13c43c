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

/// Becomes another program of the package, with at most one word for it; answers the exit status where that
/// cannot be.
int become(const QString& name, const char* word = nullptr)
{
    const QByteArray program = QFile::encodeName(packageLibraries() + u'/' + name);
    execl(program.constData(), program.constData(), word, static_cast<char*>(nullptr));
    printError(QStringLiteral("Cannot start %1: %2").arg(QFile::decodeName(program), systemReason(errno)));
    return ExitFailure;
}

} // namespace

Command settingsCommand()
{
    return {{QStringLiteral("settings"), QStringLiteral("Open the window with the saver's settings"), {}},
            [](const Arguments&) { return become(QStringLiteral("kestro-settings")); }};
}

Command doctorCommand()
{
    const Option json{QStringLiteral("json"), {}, QStringLiteral("for programs to read")};
    return {{QStringLiteral("doctor"),
             QStringLiteral("Look whether everything is there, and say what is not"),
             {json}},
            [](const Arguments& arguments) {
                return become(QStringLiteral("kestro-doctor"),
                              arguments.has(QStringLiteral("json")) ? "--json" : nullptr);
            }};
}

Command idleCommand()
{
    return {{QStringLiteral("idle"), QStringLiteral("Wait until you are away, and run the saver then"), {}},
            [](const Arguments&) { return become(QStringLiteral("kestro-idle")); }};
}

} // namespace kestro

#include "trailers/ShellCommand.h"

#include "platform/base/ChildProcess.h"

#include <QFile>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds lookEvery{20}; // whether to go on
constexpr qint64 limitBlock = 512;                 // bytes, the unit of the shell's "ulimit -f"
constexpr int exitOfSignal = 128;

} // namespace

Result<int> runShellCommand(const QByteArray& command, qint64 fileLimit,
                            const std::function<bool()>& isWanted)
{
    const QString script =
        QStringLiteral("ulimit -f %1; exec ").arg(fileLimit / limitBlock) + QFile::decodeName(command);
    auto shell =
        ChildProcess::start({.file = QStringLiteral("/bin/sh"), .arguments = {QStringLiteral("-c"), script}});
    if (!shell) return Error{QStringLiteral("cannot run a command: ") + shell.error()};
    auto end = shell.value()->waitForEnd(lookEvery);
    for (; !end; end = shell.value()->waitForEnd(lookEvery))
        if (!isWanted()) shell.value()->kill();
    return end->signal != 0 ? exitOfSignal + end->signal : end->status;
}

} // namespace kestro

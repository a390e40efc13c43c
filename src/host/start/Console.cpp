#include "host/start/Console.h"

#include "platform/base/Log.h"
#include "platform/base/Reasons.h"

#include <cerrno>
#include <cstdio>

namespace kestro {

void printError(const QString& message)
{
    logLine(QStringLiteral("kestro: ") + message);
}

ExitCode print(const QByteArray& text)
{
    const auto size = static_cast<std::size_t>(text.size());
    const bool written = std::fwrite(text.constData(), 1, size, stdout) == size;
    if (written && std::fflush(stdout) == 0) return ExitSuccess;
    printError(QStringLiteral("Cannot write to standard output: ") + systemReason(errno));
    return ExitFailure;
}

} // namespace kestro

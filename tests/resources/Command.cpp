#include "resources/Command.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace kestro::test {

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    constexpr int minute = 60'000;
    QProcess process;
    process.start(program, arguments, QIODevice::ReadOnly);
    const bool ended = process.waitForFinished(minute);
    const bool succeeded = ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    EXPECT_TRUE(succeeded) << qPrintable(program) << ": " << qPrintable(process.errorString()) << "\n"
                           << process.readAllStandardError().constData();
    return succeeded ? process.readAllStandardOutput() : QByteArray();
}

} // namespace kestro::test

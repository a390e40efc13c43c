#pragma once

#include <QByteArray>
#include <QString>

namespace kestro {

// What the commands say and answer to the shell. Main thread. Tested by test_usage.

enum ExitCode : int { ExitSuccess = 0, ExitFailure = 1, ExitWrongUsage = 2 };

/// Writes `message` as one line on standard error, after the program's name.
void printError(const QString& message);

/// Writes `text` to standard output, all of it. Answers the exit status: a failure, with its error printed,
/// when it could not be written (a full disk, a reader that went away).
[[nodiscard]] ExitCode print(const QByteArray& text);

} // namespace kestro

#pragma once

#include "platform/base/Result.h"

#include <QByteArray>

#include <functional>

namespace kestro {

/// Runs `command` by the shell, with nothing to read, its output thrown away and none of our files open, and
/// waits for its end. No file that it writes may become larger than `fileLimit` bytes. It is killed within
/// 100 ms once `isWanted` answers false. Answers its exit status, 128 and the signal's number where a signal
/// ended it; an error where it could not be run. Any thread but the main one, which must not wait.
/// Tested by PageUnpackerTest.
[[nodiscard]] Result<int> runShellCommand(const QByteArray& command, qint64 fileLimit,
                                          const std::function<bool()>& isWanted);

} // namespace kestro

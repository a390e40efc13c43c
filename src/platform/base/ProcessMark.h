#pragma once

#include <QString>

namespace kestro {

// Telling a process that runs from one that is over, also where a later one got its number. Any thread.

/// What no other process has, before or after it: the number and the moment it began at. Empty where no
/// process of that number runs.
[[nodiscard]] QString processMark(qint64 number);
[[nodiscard]] QString markOfThisProcess();

/// Whether the process with that mark still runs.
[[nodiscard]] bool isRunning(const QString& mark);

} // namespace kestro

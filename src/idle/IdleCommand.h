#pragma once

#include "host/start/Arguments.h"

#include <QStringList>

namespace kestro {

/// What may be written after `kestro idle`.
[[nodiscard]] Syntax idleSyntax();

/// `kestro idle`: waits until the person is away and shows the saver then, until a signal ends it; or asks
/// the one that runs. Answers the exit status. An application is there. Main thread.
[[nodiscard]] int runIdle(const QStringList& words);

} // namespace kestro

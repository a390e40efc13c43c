#pragma once

#include "platform/session/SessionFact.h"

namespace kestro {

// Any thread; it may take as long as a disk or the kernel does. Tested by CaptureLookTest.

/// The programs of this user that hold a camera open: "/dev/video0" and the like, by what stands in `proc`,
/// where cameras are in `devices`. What cannot be read is not known.
[[nodiscard]] QList<Hindrance> camerasInUse(const QString& proc, const QString& devices);

} // namespace kestro

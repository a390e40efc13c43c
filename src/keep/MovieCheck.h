#pragma once

#include "platform/base/Result.h"

#include <QString>

namespace kestro {

/// Whether the file at `path` is a movie that is whole. A process of its own looks into it, which a movie may
/// break. The error is the reason alone. Any thread, which waits meanwhile.
[[nodiscard]] Result<void> checkMovie(const QString& path);

} // namespace kestro

#pragma once

#include "platform/base/Result.h"

#include <QString>

namespace kestro {

// Movies that can be played while they arrive from their beginning. Any thread.

/// Whether the file can be: not when it is an MP4 or QuickTime file whose index ("moov") lies behind its
/// frames ("mdat").
[[nodiscard]] bool isStreamable(const QString& path);

/// Writes the movie file `source` to `target`, a QuickTime or MP4 file by the source's kind, with its index
/// first and everything else as it is. What was written up to an error is left there.
[[nodiscard]] Result<void> writeStreamable(const QString& source, const QString& target);

} // namespace kestro

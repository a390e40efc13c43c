#pragma once

#include "platform/base/Result.h"

#include <QByteArray>

#include <functional>

namespace kestro {

/// The whole of the plain file at `path`, `most` bytes of it: one that is larger is an error, and so is a
/// folder, a pipe or a device, which is never waited for. Reading is given up, with what there is, once
/// `isWanted` answers false. The error is the reason alone. Any thread.
[[nodiscard]] Result<QByteArray> readRegularFile(
    const QString& path, qint64 most, const std::function<bool()>& isWanted = [] { return true; });

} // namespace kestro

#pragma once

#include "platform/base/Result.h"

namespace kestro {

/// What is said of content past `limit` bytes. Any thread.
[[nodiscard]] inline Error tooLarge(qint64 limit)
{
    return Error{QStringLiteral("larger than %1 bytes").arg(limit)};
}

} // namespace kestro

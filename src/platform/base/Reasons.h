#pragma once

#include <QString>

#include <cstring>

namespace kestro {

// What is said of faults that many meet. Any thread.

/// In the system's words, by the number that errno has.
[[nodiscard]] inline QString systemReason(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

/// Of content past `limit` bytes.
[[nodiscard]] inline QString tooLarge(qint64 limit)
{
    return QStringLiteral("larger than %1 bytes").arg(limit);
}

} // namespace kestro

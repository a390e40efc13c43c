#pragma once

#include <QByteArray>

namespace kestro {

/// A socket at that path that others can connect to; its descriptor is for the caller to close.
[[nodiscard]] int listenAt(const QByteArray& path);

} // namespace kestro

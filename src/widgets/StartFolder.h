#pragma once

#include <QString>

namespace kestro {

/// The folder that a panel for movies starts in: `wanted`, else the person's for movies, else home, whichever
/// is there.
[[nodiscard]] QString startFolder(const QString& wanted = {});

} // namespace kestro

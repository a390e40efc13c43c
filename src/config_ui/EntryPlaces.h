#pragma once

#include "config_ui/PlaylistEntry.h"

#include <QStringList>

namespace kestro {

/// For each entry what tells it from others of the same name: the nearest folder that none of those has, the
/// theme where that folder is one, the server where no folder differs, else the whole way to it. Empty where
/// no other is called the same, and for the newest trailers, which lie nowhere. Any thread.
[[nodiscard]] QStringList tellingPlaces(const QList<PlaylistEntry>& entries);

} // namespace kestro

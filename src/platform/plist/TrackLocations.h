#pragma once

#include <QStringList>

#include <optional>

class QByteArray;

namespace kestro {

/// Where the tracks of a playlist in XSPF are, in their order: the first location of each, as it is written.
/// Nothing where the text is no such playlist. Entities of its own are none, and nothing is fetched for it.
/// Any thread. Tested by ListMoviesTest.
[[nodiscard]] std::optional<QStringList> trackLocations(const QByteArray& xspf);

} // namespace kestro

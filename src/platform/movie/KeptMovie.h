#pragma once

#include "platform/base/Descriptor.h"
#include "platform/movie/MovieFacts.h"

#include <QString>

#include <memory>
#include <optional>

namespace kestro {

/// A copy on the disk of a movie from the web. Who keeps such copies does not take this one away while it is
/// held. A plain value.
struct KeptMovie {
    MovieFacts facts;
    std::shared_ptr<Descriptor> hold; ///< shared by the copies of this value; never null
};

/// Looks into the copy at `path`, and notes that it is played now. Nothing where there is none, or one that
/// is no movie. Where its disk never answers it does not come back, but can be left behind. Any thread but
/// the main one.
[[nodiscard]] std::optional<KeptMovie> openKeptMovie(const QString& path);

} // namespace kestro

#pragma once

#include "platform/base/Result.h"
#include "publish/PublishedTitle.h"

#include <QByteArray>

namespace kestro {

/// Looks into movie files for the site. Owned by who publishes, on its thread.
class MovieReader {
public:
    virtual ~MovieReader() = default;

    /// Fills in size and duration of `movie`, the file at `path`. The error says why it is no movie.
    [[nodiscard]] virtual Result<void> learn(SourceMovie& movie, const QString& path) = 0;

    /// A picture of the movie as the bytes of a JPEG file; nothing where none can be decoded. The same for
    /// the same file.
    [[nodiscard]] virtual QByteArray poster(const SourceMovie& movie, const QString& path) = 0;
};

/// The real one: probes, and decodes stills.
class StillMovieReader final : public MovieReader {
public:
    [[nodiscard]] Result<void> learn(SourceMovie& movie, const QString& path) override;
    [[nodiscard]] QByteArray poster(const SourceMovie& movie, const QString& path) override;
};

} // namespace kestro

#pragma once

#include <QString>

#include <optional>

namespace kestro {

class ConfigurationFile;

/// What a person chose about copies of movies from the web: [cache] of kestro.conf.
struct CacheOptions {
    qint64 bytes = 0; ///< "size": that all of them may take; 0 for none at all
};

/// What is wrong in it is said in the log and counts as not written.
[[nodiscard]] CacheOptions cacheOptionsFrom(const ConfigurationFile& file);

/// Puts them into the file.
void putCacheOptions(const CacheOptions& options, ConfigurationFile& file);

/// A size as it is written: "0", "500 MB", "1.5 GB"; nothing for any other text, and beyond 100 TB.
[[nodiscard]] std::optional<qint64> cacheSizeFrom(const QString& text);
/// The text of a size, in whole megabytes at the finest.
[[nodiscard]] QString textOfCacheSize(qint64 bytes);

} // namespace kestro

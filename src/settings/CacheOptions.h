#pragma once

#include <QtGlobal>

namespace kestro {

class ConfigurationFile;

/// What a person chose about copies of movies from the web: [cache] of kestro.conf.
struct CacheOptions {
    qint64 bytes = 0; ///< "size": that all of them may take; 0 for none at all
};

/// What is wrong in it is said in the log and counts as not written.
[[nodiscard]] CacheOptions cacheOptionsFrom(const ConfigurationFile& file);

} // namespace kestro

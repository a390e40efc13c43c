#pragma once

namespace kestro {

class ConfigurationFile;

/// What a person chose for movies as such: [movies] of kestro.conf.
struct MovieOptions {
    static constexpr double longestDissolve = 10;

    double dissolveSeconds = 0; ///< "dissolve": that one movie takes to become the next one, 0 to 10
};

/// What is wrong in it is said in the log and counts as not written.
[[nodiscard]] MovieOptions movieOptionsFrom(const ConfigurationFile& file);

} // namespace kestro

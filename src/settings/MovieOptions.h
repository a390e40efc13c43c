#pragma once

namespace kestro {

class ConfigurationFile;

/// What a person chose for movies as such: [movies] of kestro.conf.
struct MovieOptions {
    static constexpr double longestDissolve = 10;
    static constexpr double longestTurn = 24 * 60 * 60;

    double dissolveSeconds = 0;    ///< "dissolve": that one movie takes to become the next one, 0 to 10
    double longestSeconds = 0;     ///< "longest": after which it is the next movie's turn; 0 for no such end
    bool remembersShuffle = false; ///< "shuffle=bag": no movie twice before all were seen, in any run
    bool startsAnywhere = false;   ///< "start=random": a movie begins somewhere in it, not at its beginning
};

/// What is wrong in it is said in the log and counts as not written.
[[nodiscard]] MovieOptions movieOptionsFrom(const ConfigurationFile& file);

} // namespace kestro

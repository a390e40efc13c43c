#pragma once

namespace kestro {

class ConfigurationFile;

/// What a person wants to read on the screen while a movie plays: [caption] of kestro.conf. A plain value.
struct CaptionOptions {
    bool showsTitle = false; ///< "title": of the movie, and where it is from
    bool showsClock = false; ///< "clock": the time of day

    [[nodiscard]] bool isNone() const { return !showsTitle && !showsClock; }

    /// What the file says; the usual, with a line in the log, where that is not understood.
    [[nodiscard]] static CaptionOptions from(const ConfigurationFile& file);
};

} // namespace kestro

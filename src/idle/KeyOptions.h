#pragma once

namespace kestro {

class ConfigurationFile;

/// What a person chose about the keys: [keys] of kestro.conf. A plain value.
struct KeyOptions {
    bool isEnabled = false; ///< "enabled": some keys act on the saver instead of ending it

    /// What the file says; the usual, with a line in the log, where that is not understood.
    [[nodiscard]] static KeyOptions from(const ConfigurationFile& file);
};

} // namespace kestro

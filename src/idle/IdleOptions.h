#pragma once

#include "platform/base/Result.h"

#include <QString>

#include <chrono>

namespace kestro {

class ConfigurationFile;

/// What a person chose about the saver's start by itself: [idle] of kestro.conf. A plain value.
struct IdleOptions {
    static constexpr std::chrono::minutes usualSpan{5};
    static constexpr std::chrono::seconds shortestSpan{1};
    static constexpr std::chrono::hours longestSpan{24};

    bool isEnabled = false;                 ///< whether the session starts the service
    std::chrono::seconds after = usualSpan; ///< without input until the saver comes
    std::chrono::seconds stopAfter{0};      ///< shown until it is black; 0 for never

    /// What the file says; the usual, with a line in the log, where that is not understood.
    [[nodiscard]] static IdleOptions from(const ConfigurationFile& file);
    /// Puts them into the file.
    void putInto(ConfigurationFile& file) const;
};

/// A span as a person writes it: "5" minutes, "90s", "5m", "1h". The error names the bounds.
[[nodiscard]] Result<std::chrono::seconds> spanFrom(const QString& text);

/// The same, or "0" for never, which is none.
[[nodiscard]] Result<std::chrono::seconds> endFrom(const QString& text);

/// The same span back: in minutes, or in seconds where they are not whole.
[[nodiscard]] QString textOf(std::chrono::seconds span);

} // namespace kestro

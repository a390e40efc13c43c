#pragma once

#include <QString>

#include <optional>

namespace kestro {

/// At which time of the day an entry of the playlist plays. A plain value.
struct PlayTime {
    enum class Kind { Always, Day, Night, Hours };

    Kind kind = Kind::Always;
    int from = 0; ///< of hours: minutes since midnight
    int to = 0;   ///< of hours: likewise, no more of them; before `from` where they last over midnight

    [[nodiscard]] bool operator==(const PlayTime&) const = default;
};

/// What a word stands for: "day", "night", or hours as in "20-6" or "08:30-17:00". Nothing for any other
/// word, and for hours that begin when they end.
[[nodiscard]] std::optional<PlayTime> playTimeFrom(const QString& word);

/// The word for it, hours with their minutes; empty for always.
[[nodiscard]] QString textOf(const PlayTime& time);

/// Whether a minute of the day, counted from midnight, lies in the hours of `time`.
[[nodiscard]] bool isWithinHours(const PlayTime& time, int minute);

} // namespace kestro

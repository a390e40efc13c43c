#pragma once

#include "platform/base/Result.h"

#include <QString>
#include <QStringList>

#include <array>

namespace kestro {

/// How the screens that show the saver share it: each has one of its own, all show the same one, or one goes
/// across all of them as they stand on the desk.
enum class ScreensMode { Each, Mirror, Span };
inline constexpr std::array screensModes{ScreensMode::Each, ScreensMode::Mirror, ScreensMode::Span};
/// "each", "mirror" or "span".
[[nodiscard]] QString textOf(ScreensMode mode);

/// Which monitors show the saver; the others are black meanwhile. A plain value.
struct MonitorChoice {
    enum class Kind { All, First, Named };

    Kind kind = Kind::All;
    QStringList names; ///< with Named: those of the display server, such as "HDMI-1"
    bool operator==(const MonitorChoice&) const = default;

    /// "all", "first", or names with commas between them. The error says what it may be.
    [[nodiscard]] static Result<MonitorChoice> from(const QString& text);
    [[nodiscard]] QString text() const;
};

/// What a person chose about the monitors. A plain value.
struct ScreenChoice {
    ScreensMode mode = ScreensMode::Each;
    MonitorChoice monitors;
    bool operator==(const ScreenChoice&) const = default;
};

} // namespace kestro

#pragma once

#include "platform/session/BusObject.h"

#include <QByteArray>
#include <QDBusConnection>

namespace kestro {

/// Where the parts of a person's session are reached. A plain value. Tested by IdleSourceSearchTest.
struct SessionPlaces {
    /// Those of this process.
    [[nodiscard]] static SessionPlaces ofProcess();

    /// The X server to look at; empty under Wayland, where there is Xwayland at most. That one knows nothing
    /// of input to other windows than its own, and a look at it may be what starts it.
    [[nodiscard]] QByteArray trueXDisplay() const
    {
        return waylandDisplay.isEmpty() ? xDisplay : QByteArray();
    }

    QDBusConnection bus;
    QByteArray waylandDisplay; ///< as in WAYLAND_DISPLAY; empty for none
    QByteArray xDisplay;       ///< as in DISPLAY; empty for none
};

/// The bus itself, as a service on it.
[[nodiscard]] BusAddress busItself();

} // namespace kestro

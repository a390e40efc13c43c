#pragma once

#include "platform/session/SessionFact.h"

#include <QByteArray>

namespace kestro {

// Any thread; it may take as long as the display does.

/// Whether the window in use covers its screen, by what the window manager has written at the X server of
/// that name; no where it writes no such thing.
[[nodiscard]] bool isFullScreenOnX11(const QByteArray& display);

/// The same under the Wayland compositor of that name, where it tells of windows by
/// wlr-foreign-toplevel-management: sway and its like.
[[nodiscard]] bool isFullScreenOnWayland(const QByteArray& display);

/// The reasons not to show a saver while `programs` are heard behind a window that covers its screen.
[[nodiscard]] QList<Hindrance> soundOfFullScreen(const QStringList& programs);

} // namespace kestro

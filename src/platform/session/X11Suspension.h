#pragma once

#include "platform/session/SessionFact.h"

#include <QString>

namespace kestro {

// Any thread; it may take as long as the X server does. Tested by InhibitorFactsTest.

/// How the X server's own saver stands, as far as it says.
struct X11SaverState {
    bool isDisabled = false; ///< its time is 0: "xset s off"
    bool isShown = false;    ///< it has blanked the screen
    unsigned timeout = 0;    ///< seconds after which it is due; 0 for never
    unsigned idleMilliseconds = 0;
};

/// Why the X server's saver does not come. Somebody who plays something has suspended it where it is long
/// due and not there; that it is switched off is a reason where `disabledCounts`.
[[nodiscard]] QList<Hindrance> suspensionIn(const X11SaverState& state, bool disabledCounts);

/// The same of the server of that name; nothing where it cannot be asked. That it is switched off counts no
/// more once xscreensaver has run there, which leaves it so.
[[nodiscard]] QList<Hindrance> x11Suspension(const QByteArray& display, bool disabledCounts);

} // namespace kestro

#pragma once

#include "host/Program.h"

namespace kestro {

/// `kestro install-xscreensaver`: puts Kestro into the user's list of xscreensaver's savers, or takes it out.
[[nodiscard]] Command installXscreensaverCommand();

} // namespace kestro

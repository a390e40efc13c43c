#pragma once

#include "host/Program.h"

namespace kestro {

/// `kestro import-hacks`: makes saver bundles of xscreensaver's hacks, or lists them.
[[nodiscard]] Command importHacksCommand();

} // namespace kestro

#pragma once

namespace kestro {

struct Command;

/// `kestro show-settings`: prints what the settings files come to, as JSON. Needs no display.
[[nodiscard]] Command showSettingsCommand();

} // namespace kestro

#pragma once

namespace kestro {

struct Command;

/// `kestro settings`: becomes the program that shows the settings, which this one is not, so that no saver
/// loads widgets.
[[nodiscard]] Command settingsCommand();

} // namespace kestro

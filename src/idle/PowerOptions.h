#pragma once

#include "platform/session/PowerRule.h"

namespace kestro {

class ConfigurationFile;

/// What a person chose for times when power is scarce: [power] of kestro.conf, whose keys "on-battery",
/// "when-low" and "in-power-saver" are "play", "still" or "off", and whose "low" is a number of percent. The
/// usual, with a line in the log, where that is not understood.
[[nodiscard]] PowerRule powerRuleFrom(const ConfigurationFile& file);

} // namespace kestro

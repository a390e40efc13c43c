#pragma once

#include "platform/base/ScreenChoice.h"

namespace kestro {

class ConfigurationFile;

/// What a person chose about the monitors: [screens] of kestro.conf, whose keys are "mode" (each, mirror or
/// span) and "monitors" (all, first, or names). The usual, with a line in the log, where that is not
/// understood.
[[nodiscard]] ScreenChoice screenChoiceFrom(const ConfigurationFile& file);

/// Puts it into the file.
void putScreenChoice(const ScreenChoice& choice, ConfigurationFile& file);

} // namespace kestro

#pragma once

#include "platform/saver/SaverBundle.h"

#include <optional>

namespace kestro {

/// The principal class of the package's own saver bundle, lib/kestro/Kestro.saver. Nothing, after one line on
/// standard error, when it is missing or broken. The bundle stays loaded for the life of the process. Main
/// thread. Tested by test_display.
[[nodiscard]] std::optional<PrincipalClass> kestroSaver();

} // namespace kestro

#pragma once

#include "Expect.h"

#include <string_view>

namespace kestro {

/// What each fuzzer defines: has one reader read the input, and says by expect() what must hold of the
/// result.
void tryInput(std::string_view input);

} // namespace kestro

#pragma once

namespace kestro {

/// How a hack ended: the exit status of the program that guards it.
enum class HackGuardStatus : int { Ended = 0, Crashed = 1, NotStarted = 2 };

} // namespace kestro

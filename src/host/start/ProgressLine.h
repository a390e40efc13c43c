#pragma once

#include <string>

namespace kestro {

// One line of a terminal that changes while a command works. It is where errors are told, apart from what a
// command answers. Tested by ScanProgressTest.

/// Whether there is a terminal to draw it on.
[[nodiscard]] bool hasProgressLine();
/// How many characters of it there is room for.
[[nodiscard]] int progressColumns();
/// Shows `line` in place of what it was; no more characters than there is room for. Ended by a new line it
/// stays, and the next is drawn below.
void drawProgress(const std::string& line);
/// Takes the line away, before something else is written.
void eraseProgress();

} // namespace kestro

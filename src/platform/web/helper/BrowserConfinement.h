#pragma once

namespace kestro {

/// Gives up, for this process and all that it will start, what the browser needs none of: the network, down
/// to the machine's own loopback; rights that a program could gain by starting another; calls of the system
/// that look into other processes or change the machine; and memory, files and core dumps without end. Before
/// there is any thread. False where this cannot be had; then nothing is to be shown.
/// Tested by test_web_confinement.
[[nodiscard]] bool confineBrowser();

} // namespace kestro

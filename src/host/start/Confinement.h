#pragma once

namespace kestro {

// What a process of the package gives up at its start, for itself and for whatever it starts.

/// From now on no program that this process becomes or starts gets rights beyond its own (a setuid program
/// runs as the user; one that is harmed by a movie cannot go through one). Of root's rights those about files
/// stay. No core is written: it would hold the passwords that stand in URLs. First thing in a process.
void confineProcess();

/// Has the kernel end this process and its children before any other when memory runs out: for what plays
/// movies while nobody looks after it.
void beFirstToGo();

} // namespace kestro
